#include "updates/feed/signed_feed.hpp"

#include "updates/testing/test_key.hpp"

#include <gmock/gmock.h>

namespace updates {
namespace {

using std::chrono::days;
using std::chrono::seconds;

const std::chrono::sys_seconds today = std::chrono::sys_days(std::chrono::year(2027) / 3 / 1);
const std::string feed = "<rss><channel><item><sparkle:version>2.0</sparkle:version>"
                         "<enclosure url=\"u\"/></item></channel></rss>";

std::span<const std::byte> bytesOf(const std::string& text) {
    return std::as_bytes(std::span(text));
}

/// As the maker writes it.
std::string statementOf(const std::string& document, std::uint64_t serial = 7,
                        std::chrono::sys_seconds expires = today + days(90)) {
    FeedStatement statement{serial, expires, {}};
    statement.signature =
        testing::testSignature(bytesOf(signedBytes(statement, bytesOf(document))));
    return feedStatementText(statement);
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

/// The fault, or none for a feed that is believed.
std::optional<FeedFault> faultOf(const std::string& document, const std::string& statement,
                                 const FeedTrust& trust = {testing::publicTestKey, 7, today}) {
    const auto read = readSignedAppcast(bytesOf(document), statement, trust);
    const auto* const fault = std::get_if<FeedFault>(&read);
    return fault == nullptr ? std::nullopt : std::optional(*fault);
}

TEST(SignedFeed, IsReadOnceItsSignatureSerialAndExpiryAreGood) {
    const auto read =
        readSignedAppcast(bytesOf(feed), statementOf(feed), {testing::publicTestKey, 7, today});
    ASSERT_TRUE(std::holds_alternative<SignedAppcast>(read));
    EXPECT_EQ(std::get<SignedAppcast>(read).serial, 7U);
    EXPECT_EQ(std::get<SignedAppcast>(read).appcast.items.size(), 1U);

    const std::string good = statementOf(feed);
    const std::string key = testing::publicTestKey;
    // Another valid point for a key.
    const std::string otherKey = "11qYAYKxCrfVS/7TyWQHOg7hcvPapiMlrwIaaPcHURo=";
    const auto at = [&](std::uint64_t last, std::chrono::system_clock::time_point now) {
        return FeedTrust{key, last, now};
    };
    const struct {
        const char* what;
        std::string document;
        std::string statement;
        FeedTrust trust;
        std::optional<FeedFault> fault;
    } cases[] = {
        {"no statement", feed, "", at(0, today), FeedFault::notSigned},
        {"a word changed", replaced(feed, "2.0", "2.1"), good, at(0, today),
         FeedFault::signatureWrong},
        {"a byte more", feed + "\n", good, at(0, today), FeedFault::signatureWrong},
        {"nothing in its place", "", good, at(0, today), FeedFault::signatureWrong},
        {"a later serial claimed", feed, replaced(good, "serial: 7", "serial: 8"), at(0, today),
         FeedFault::signatureWrong},
        {"a later expiry claimed", feed, replaced(good, "2027", "2028"), at(0, today),
         FeedFault::notSigned}, // the day of the week gives it away
        {"a year later", feed, replaced(replaced(good, "Sun", "Tue"), "2027", "2028"), at(0, today),
         FeedFault::signatureWrong},
        {"of another key", feed, good, {otherKey, 0, today}, FeedFault::signatureWrong},
        {"no key", feed, good, {"", 0, today}, FeedFault::signatureWrong},
        {"the feed alone signed, as an archive is", feed,
         feedStatementText({7, today + days(90), testing::testSignature(bytesOf(feed))}),
         at(0, today), FeedFault::signatureWrong},
        {"the first one ever", feed, good, at(0, today), {}},
        {"an older one than was seen", feed, good, at(8, today), FeedFault::superseded},
        {"its last second", feed, good, at(7, today + days(90) - seconds(1)), {}},
        {"too late", feed, good, at(7, today + days(90)), FeedFault::expired},
        {"older and too late", feed, good, at(8, today + days(90)), FeedFault::superseded},
        // Nothing is told of what nobody vouches for.
        {"a bomb that is not signed", "<!DOCTYPE rss><rss/>", good, at(0, today),
         FeedFault::signatureWrong},
        {"a bomb that is signed", "<!DOCTYPE rss><rss/>", statementOf("<!DOCTYPE rss><rss/>"),
         at(0, today), FeedFault::documentType},
        {"too large", std::string(largestFeed + 1, ' '), statementOf(""), at(0, today),
         FeedFault::tooLarge},
    };
    for (const auto& [what, document, statement, trust, fault] : cases) {
        EXPECT_EQ(faultOf(document, statement, trust), fault) << what;
    }
}

TEST(FeedStatement, HasOneForm) {
    const std::string good = statementOf(feed);
    const auto statement = readFeedStatement(good);
    ASSERT_TRUE(statement);
    EXPECT_EQ(statement->serial, 7U);
    EXPECT_EQ(statement->expires, today + days(90));
    EXPECT_EQ(feedStatementText(*statement), good);
    for (const std::string& other :
         {good + '\n', ' ' + good, good.substr(0, good.size() - 1), good + good, std::string("\n"),
          replaced(good, "7", "07"), replaced(good, "7", "-7"), replaced(good, "7", "0"),
          replaced(good, "7", "9007199254740992"), replaced(good, "7", "99999999999999999999999"),
          replaced(good, "+0000", "GMT"), replaced(good, "\n", "\r\n"),
          replaced(good, "ed25519", "sha"), replaced(good, "expires: ", "expires: soon "),
          good.substr(0, good.find("ed25519")),
          feedStatementText({7, today, std::string(1000, 'A')})}) {
        EXPECT_EQ(readFeedStatement(other), std::nullopt) << other;
    }
    for (std::size_t length = 0; length < good.size(); ++length) {
        EXPECT_EQ(readFeedStatement(good.substr(0, length)), std::nullopt) << length;
    }
}

} // namespace
} // namespace updates
