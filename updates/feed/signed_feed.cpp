#include "updates/feed/signed_feed.hpp"

#include "updates/feed/publication_date.hpp"
#include "updates/feed/signature.hpp"

#include <charconv>

namespace updates {
namespace {

constexpr std::string_view heading = "Update feed, signed\nserial: ";
constexpr std::string_view expiry = "\nexpires: ";
constexpr std::string_view signing = "\ned25519: ";

/// The lines that are signed.
std::string head(const FeedStatement& statement) {
    return std::string(heading) + std::to_string(statement.serial) + std::string(expiry) +
           publicationDate(statement.expires);
}

/// What stands before `mark`; takes it and the mark off the text.
std::string_view before(std::string_view mark, std::string_view& text) {
    const std::string_view part = text.substr(0, text.find(mark));
    text.remove_prefix(std::min(text.size(), part.size() + mark.size()));
    return part;
}

} // namespace

std::string feedStatementText(const FeedStatement& statement) {
    return head(statement) + std::string(signing) + statement.signature + '\n';
}

std::optional<FeedStatement> readFeedStatement(std::string_view text) {
    if (text.size() > largestFeedStatement || !text.starts_with(heading)) {
        return std::nullopt;
    }
    std::string_view rest = text.substr(heading.size());
    const std::string_view serial = before(expiry, rest);
    const auto expires = parsePublicationDate(before(signing, rest));
    FeedStatement statement{0, expires.value_or(std::chrono::sys_seconds()),
                            std::string(before("\n", rest))};
    std::from_chars(serial.data(), serial.data() + serial.size(), statement.serial);
    // There is one way to write a statement: whatever reads otherwise is none.
    return expires && statement.serial > 0 && statement.serial <= largestFeedSerial &&
                   feedStatementText(statement) == text
               ? std::optional(statement)
               : std::nullopt;
}

std::string signedBytes(const FeedStatement& statement, std::span<const std::byte> feed) {
    std::string bytes = head(statement) + "\n\n";
    bytes.append(reinterpret_cast<const char*>(feed.data()), feed.size());
    return bytes;
}

std::variant<SignedAppcast, FeedFault> readSignedAppcast(std::span<const std::byte> feed,
                                                         std::string_view statement,
                                                         const FeedTrust& trust) {
    if (feed.size() > largestFeed) {
        return FeedFault::tooLarge;
    }
    const auto stated = readFeedStatement(statement);
    if (!stated) {
        return FeedFault::notSigned;
    }
    const std::string bytes = signedBytes(*stated, feed);
    if (verifySignature(std::as_bytes(std::span(bytes)), stated->signature, trust.publicKey)) {
        return FeedFault::signatureWrong;
    }
    if (stated->serial < trust.lastSerial) {
        return FeedFault::superseded;
    }
    if (trust.now >= stated->expires) {
        return FeedFault::expired;
    }
    auto read = readAppcast(feed);
    if (const auto* const fault = std::get_if<FeedFault>(&read)) {
        return *fault;
    }
    return SignedAppcast{std::get<Appcast>(std::move(read)), stated->serial};
}

} // namespace updates
