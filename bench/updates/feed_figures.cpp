// How fast update feeds are read, and what verifying an archive costs beside the plain signature
// library over the very same bytes.

#include "bench/figure.hpp"
#include "platform/system/sealed_file.hpp"
#include "updates/feed/appcast_reader.hpp"
#include "updates/feed/publication_date.hpp"
#include "updates/feed/signature.hpp"
#include "updates/feed/signed_feed.hpp"

#include <sodium.h>

#include <chrono>
#include <random>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

constexpr double mebibyte = 1 << 20;

template<class Call>
double seconds(Call call) {
    const auto start = Clock::now();
    call();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// A feed like those of programs with many releases, nearly as large as may be.
std::string makeFeed() {
    std::string feed = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rss version=\"2.0\" "
                       "xmlns:sparkle=\"https://feeds.example/sparkle\"><channel>\n";
    for (int i = 0; feed.size() < updates::largestFeed - 4096; ++i) {
        const std::string version = "1." + std::to_string(i);
        feed += "<item>\n  <title>Larkvox " + version + "</title>\n  <pubDate>" +
                updates::publicationDate(std::chrono::sys_seconds(std::chrono::hours(i))) +
                "</pubDate>\n  <sparkle:version>" + version + "</sparkle:version>\n" +
                "  <sparkle:minimumSystemVersion>12</sparkle:minimumSystemVersion>\n"
                "  <description><![CDATA[<ul>";
        for (int line = 0; line < 8; ++line) {
            feed += "<li>Something &amp; something else works better than it did.</li>\n";
        }
        feed += "</ul>]]></description>\n  <enclosure url=\"https://a.example/larkvox-" + version +
                ".tar.xz\" length=\"12345678\" type=\"application/x-xz\" sparkle:os=\"linux\" "
                "sparkle:edSignature=\"" +
                std::string(86, 'A') + "==\"/>\n</item>\n";
    }
    return feed + "</channel></rss>\n";
}

std::string base64(const unsigned char* bytes, std::size_t size) {
    std::string text(sodium_base64_ENCODED_LEN(size, sodium_base64_VARIANT_ORIGINAL), '\0');
    sodium_bin2base64(text.data(), text.size(), bytes, size, sodium_base64_VARIANT_ORIGINAL);
    text.pop_back();
    return text;
}

bool measureReading() {
    const std::string feed = makeFeed();
    const auto bytes = std::as_bytes(std::span(feed));
    unsigned char publicKey[crypto_sign_PUBLICKEYBYTES];
    unsigned char secretKey[crypto_sign_SECRETKEYBYTES];
    unsigned char signature[crypto_sign_BYTES];
    crypto_sign_keypair(publicKey, secretKey);
    updates::FeedStatement statement{1, std::chrono::sys_days(std::chrono::year(2100) / 1 / 1), {}};
    const std::string toSign = updates::signedBytes(statement, bytes);
    crypto_sign_detached(signature, nullptr, reinterpret_cast<const unsigned char*>(toSign.data()),
                         toSign.size(), secretKey);
    statement.signature = base64(signature, sizeof signature);
    const std::string beside = updates::feedStatementText(statement);
    const updates::FeedTrust trust{base64(publicKey, sizeof publicKey), 1, {}};

    std::vector<double> samples;
    std::vector<double> signedSamples;
    bool isRead = true;
    for (int round = 0; round < 60; ++round) {
        samples.push_back(seconds([&] {
            const auto result = updates::readAppcast(bytes);
            isRead = isRead && std::holds_alternative<updates::Appcast>(result);
        }));
        signedSamples.push_back(seconds([&] {
            const auto result = updates::readSignedAppcast(bytes, beside, trust);
            isRead = isRead && std::holds_alternative<updates::SignedAppcast>(result);
        }));
    }
    const double size = static_cast<double>(feed.size()) / mebibyte;
    bench::figure("feed_parse_mib_s", size / bench::median(samples), "MiB/s");
    bench::figure("feed_verify_parse_mib_s", size / bench::median(signedSamples), "MiB/s");
    return isRead;
}

bool measureVerifying() {
    constexpr std::size_t size = std::size_t{200} << 20;
    std::error_code error;
    auto file = platform::SealedFile::create("archive", error);
    std::vector<std::uint64_t> block(1 << 17);
    std::mt19937_64 random(1);
    while (!error && file.size() < size) {
        for (std::uint64_t& word : block) {
            word = random();
        }
        error = file.append(std::as_bytes(std::span(block)));
    }
    error = error ? error : file.seal();
    const auto bytes = error ? std::span<const std::byte>() : file.map(error);
    if (error || sodium_init() < 0) {
        std::fprintf(stderr, "no file of 200 MiB in memory: %s\n", error.message().c_str());
        return false;
    }
    const auto* const plain = reinterpret_cast<const unsigned char*>(bytes.data());
    unsigned char publicKey[crypto_sign_PUBLICKEYBYTES];
    unsigned char secretKey[crypto_sign_SECRETKEYBYTES];
    unsigned char signature[crypto_sign_BYTES];
    crypto_sign_keypair(publicKey, secretKey);
    crypto_sign_detached(signature, nullptr, plain, bytes.size(), secretKey);
    const std::string key = base64(publicKey, sizeof publicKey);
    const std::string text = base64(signature, sizeof signature);

    std::vector<double> ours;
    std::vector<double> theirs;
    bool isVerified = true;
    // In turns, so that whatever else the machine does meets both.
    for (int round = 0; round < 5; ++round) {
        theirs.push_back(seconds([&] {
            isVerified =
                crypto_sign_verify_detached(signature, plain, bytes.size(), publicKey) == 0 &&
                isVerified;
        }));
        ours.push_back(seconds(
            [&] { isVerified = !updates::verifySignature(bytes, text, key) && isVerified; }));
    }
    bench::figure("verify_mib_s", static_cast<double>(size) / mebibyte / bench::median(ours),
                  "MiB/s");
    bench::figure("verify_ratio", bench::median(ours) / bench::median(theirs), "times");
    return isVerified;
}

} // namespace

int main() {
    const bool isRead = measureReading();
    const bool isVerified = measureVerifying();
    return isRead && isVerified ? 0 : 1;
}
