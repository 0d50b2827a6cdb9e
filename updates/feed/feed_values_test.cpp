// The small values of a feed: dates, addresses, signatures.
#include "updates/feed/publication_date.hpp"
#include "updates/feed/secure_address.hpp"
#include "updates/feed/signature.hpp"

#include <gmock/gmock.h>
#include <sodium.h>

#include <vector>

namespace updates {
namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

TEST(PublicationDate, IsReadInItsUsualForms) {
    const sys_seconds time(seconds(1741080600));
    for (const char* const text :
         {"Tue, 04 Mar 2025 09:30:00 +0000", "Tue, 4 Mar 2025 09:30:00 GMT", "4 Mar 2025 09:30 UT",
          "Tue,  04  Mar  2025  10:30:00  +0100 ", "Tue, 04 Mar 2025 01:00:00 -0830",
          "Wed, 05 Mar 2025 00:30:00 +1500", "04 Mar 2025 09:30:00 Z"}) {
        const bool isTooFar = std::string_view(text).ends_with("+1500");
        EXPECT_EQ(parsePublicationDate(text), isTooFar ? std::nullopt : std::optional(time))
            << text;
    }
    EXPECT_EQ(publicationDate(time), "Tue, 04 Mar 2025 09:30:00 +0000");
    for (const long long edge : {0LL, 951782400LL, 32503679999LL}) {
        const sys_seconds instant{seconds(edge)};
        EXPECT_EQ(parsePublicationDate(publicationDate(instant)), instant);
    }
}

TEST(PublicationDate, IsNotGuessed) {
    const std::string good = "04 Mar 2025 09:30:00 Z";
    ASSERT_TRUE(parsePublicationDate(good));
    // A part of it and what stands in its place.
    for (const std::string change :
         {"04 Mar>31 Feb", "04>00", "04>-4", "04>on Tue, 04", "Mar>März", "2025>25", "2025>3000",
          "2025>1969", "09>24", ":30:>:60:", "09:30:00>0930", ":00 Z>", "Z>EST", "Z>+01:00",
          "Z>Z more", " 09:30:00 Z>", "04>9999999999999"}) {
        const auto at = change.find('>');
        std::string text = good;
        text.replace(text.find(change.substr(0, at)), at, change.substr(at + 1));
        EXPECT_EQ(parsePublicationDate(text), std::nullopt) << text;
    }
    for (const char* const none : {"", "soon", "2025-03-04T09:30:00Z"}) {
        EXPECT_EQ(parsePublicationDate(none), std::nullopt) << none;
    }
}

TEST(SecureAddress, IsACompleteHttpsAddress) {
    for (const char* const good : {"https://a.example", "HTTPS://a.example:8443/x?y=@#z",
                                   "https://[::1]:8443/x", "https://a.example/%20"}) {
        EXPECT_TRUE(isSecureAddress(good)) << good;
    }
    for (const char* const bad :
         {"", "https://", "https:///x", "https:a.example", "http://a.example/", "ftp://a.example/",
          "file:///etc/passwd", "//a.example/x", "/x", " https://a.example/",
          "https://a.example/ x", "https://a.example/\n", "https://user@a.example/",
          "https://b.example:x@a.example/", "https://:8443/", "https://a.example\\@b.example/",
          "https://a.ex\xc3\xa4mple/"}) {
        EXPECT_FALSE(isSecureAddress(bad)) << bad;
    }
}

class SignatureTest : public testing::Test {
  protected:
    template<std::size_t Size>
    static std::string base64(const unsigned char (&bytes)[Size]) {
        char text[2 * Size];
        return sodium_bin2base64(text, sizeof text, bytes, Size, sodium_base64_VARIANT_ORIGINAL);
    }

    void SetUp() override {
        ASSERT_GE(sodium_init(), 0);
        const unsigned char seed[crypto_sign_SEEDBYTES] = {1, 2, 3};
        crypto_sign_seed_keypair(publicKey_, secretKey_, seed);
        key_ = base64(publicKey_);
        signature_ = sign(content_);
    }

    std::string sign(const std::vector<std::byte>& content) {
        unsigned char bytes[crypto_sign_BYTES];
        crypto_sign_detached(bytes, nullptr, reinterpret_cast<const unsigned char*>(content.data()),
                             content.size(), secretKey_);
        return base64(bytes);
    }

    std::vector<std::byte> content_ = std::vector<std::byte>(1000, std::byte{7});
    std::string key_;
    std::string signature_;
    unsigned char publicKey_[crypto_sign_PUBLICKEYBYTES]{};
    unsigned char secretKey_[crypto_sign_SECRETKEYBYTES]{};
};

TEST_F(SignatureTest, VouchesForExactlyItsBytes) {
    EXPECT_EQ(verifySignature(content_, signature_, key_), std::nullopt);
    EXPECT_EQ(verifySignature({}, sign({}), key_), std::nullopt);
    for (const std::size_t at : {std::size_t{0}, std::size_t{500}, content_.size() - 1}) {
        content_[at] ^= std::byte{1};
        EXPECT_EQ(verifySignature(content_, signature_, key_), SignatureFault::wrong);
        content_[at] ^= std::byte{1};
    }
    EXPECT_EQ(verifySignature(std::span(content_).first(999), signature_, key_),
              SignatureFault::wrong);
    content_.push_back({});
    EXPECT_EQ(verifySignature(content_, signature_, key_), SignatureFault::wrong);
    EXPECT_EQ(verifySignature({}, signature_, key_), SignatureFault::wrong);
}

TEST_F(SignatureTest, IsOnlyTakenInItsOneForm) {
    const std::string bare = signature_.substr(0, 86);
    const struct {
        std::string signature;
        std::optional<SignatureFault> fault;
    } cases[] = {{"", SignatureFault::missing},
                 {bare, SignatureFault::malformed},
                 {bare + "=", SignatureFault::malformed},
                 {bare + "===", SignatureFault::malformed},
                 {signature_ + "\n", SignatureFault::malformed},
                 {" " + signature_, SignatureFault::malformed},
                 {signature_ + signature_, SignatureFault::malformed},
                 {signature_.substr(4), SignatureFault::malformed},
                 {std::string(88, 'A'), SignatureFault::malformed},
                 {std::string(85, 'A') + "B==", SignatureFault::malformed},
                 {std::string(85, '-') + "A==", SignatureFault::malformed},
                 {std::string(86, 'A') + "==", SignatureFault::wrong},
                 {std::string(85, '/') + "w==", SignatureFault::wrong}};
    for (const auto& [signature, fault] : cases) {
        EXPECT_EQ(verifySignature(content_, signature, key_), fault) << signature;
        EXPECT_EQ(isSignature(signature), fault == SignatureFault::wrong) << signature;
    }
}

TEST_F(SignatureTest, NeedsTheKeyThatMadeIt) {
    unsigned char other[crypto_sign_PUBLICKEYBYTES];
    unsigned char secret[crypto_sign_SECRETKEYBYTES];
    crypto_sign_keypair(other, secret);
    EXPECT_EQ(verifySignature(content_, signature_, base64(other)), SignatureFault::wrong);
    for (const std::string& bad : {std::string(), key_.substr(0, 43), key_ + "=", "A" + key_,
                                   std::string(43, 'A') + "=", signature_}) {
        EXPECT_EQ(verifySignature(content_, signature_, bad), SignatureFault::badKey) << bad;
        EXPECT_FALSE(isPublicKey(bad)) << bad;
    }
    EXPECT_TRUE(isPublicKey(key_));
}

} // namespace
} // namespace updates
