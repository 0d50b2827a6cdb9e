#include "updates/publisher/signing_key.hpp"

#include "platform/system/files.hpp"
#include "updates/feed/signature.hpp"
#include "updates/publisher/failure.hpp"
#include "updates/publisher/files.hpp"

#include <sodium.h>

#include <cerrno>
#include <string_view>
#include <system_error>

namespace updates {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view heading = "Larkvox update signing key, private: keep it secret\n";
constexpr std::size_t seedTextSize = 44; // 32 bytes in base64
static_assert(crypto_sign_SECRETKEYBYTES == 64 && crypto_sign_SEEDBYTES == 32);

void startSodium() {
    if (sodium_init() < 0) {
        throw Failure(ExitCode::inputOutput, "The system gives no random numbers.");
    }
}

std::string base64(const unsigned char* bytes, std::size_t size) {
    std::string text(sodium_base64_ENCODED_LEN(size, sodium_base64_VARIANT_ORIGINAL), '\0');
    sodium_bin2base64(text.data(), text.size(), bytes, size, sodium_base64_VARIANT_ORIGINAL);
    text.pop_back(); // the zero at its end
    return text;
}

/// A text that is wiped when it is not needed any more.
struct SecretText {
    std::string text;
    SecretText() = default;
    ~SecretText() { sodium_memzero(text.data(), text.size()); }
    SecretText(const SecretText&) = delete;
    SecretText& operator=(const SecretText&) = delete;
};

/// The beginning of a file that only its owner can read, in the one piece of memory that will be
/// wiped.
std::string readPrivateFile(const fs::path& path) {
    const platform::Descriptor file = platform::openFile(path);
    std::string text(1024, '\0');
    std::size_t size = 0;
    if (const int error = file ? platform::readSome(file.get(), text, size) : errno; error != 0) {
        throw Failure(ExitCode::inputOutput, path.string() + ": cannot be read: " +
                                                 std::generic_category().message(error));
    }
    text.resize(size);
    if (!platform::isPrivate(file.get())) {
        sodium_memzero(text.data(), text.size());
        throw Failure(ExitCode::refused,
                      path.string() +
                          ": others can read this private key. Make it yours alone with "
                          "\"chmod 600\", and consider whether somebody has.");
    }
    return text;
}

} // namespace

SigningKey SigningKey::create(const fs::path& path) {
    startSodium();
    SigningKey key;
    unsigned char publicPart[crypto_sign_PUBLICKEYBYTES];
    crypto_sign_keypair(publicPart, key.secret_.data());
    SecretText content;
    content.text.reserve(heading.size() + seedTextSize + 1); // so that no piece stays elsewhere
    content.text += heading;
    {
        SecretText seed;
        seed.text = base64(key.secret_.data(), crypto_sign_SEEDBYTES);
        content.text += seed.text;
    }
    content.text += '\n';
    const fs::path publicPath = path.string() + ".pub";
    writeNewFile(path, content.text, 0600);
    try {
        writeNewFile(publicPath, key.publicKey() + '\n', 0644);
    } catch (const Failure&) {
        std::error_code error;
        fs::remove(path, error); // half a pair is of no use
        throw;
    }
    return key;
}

SigningKey SigningKey::load(const fs::path& path) {
    startSodium();
    SecretText content;
    content.text = readPrivateFile(path);
    SigningKey key;
    std::array<unsigned char, crypto_sign_SEEDBYTES> seed{};
    std::size_t size = 0;
    const bool isKey =
        content.text.size() == heading.size() + seedTextSize + 1 &&
        content.text.starts_with(heading) && content.text.back() == '\n' &&
        sodium_base642bin(seed.data(), seed.size(), content.text.data() + heading.size(),
                          seedTextSize, nullptr, &size, nullptr,
                          sodium_base64_VARIANT_ORIGINAL) == 0 &&
        size == seed.size();
    if (isKey) {
        unsigned char publicPart[crypto_sign_PUBLICKEYBYTES];
        crypto_sign_seed_keypair(publicPart, key.secret_.data(), seed.data());
    }
    sodium_memzero(seed.data(), seed.size());
    if (!isKey) {
        throw Failure(ExitCode::refused,
                      path.string() + ": is not a private key made by \"keygen\".");
    }
    return key;
}

SigningKey::~SigningKey() {
    sodium_memzero(secret_.data(), secret_.size());
}

SigningKey::SigningKey(SigningKey&& other) noexcept : secret_(other.secret_) {
    sodium_memzero(other.secret_.data(), other.secret_.size());
}

std::string SigningKey::publicKey() const {
    return base64(secret_.data() + crypto_sign_SEEDBYTES, crypto_sign_PUBLICKEYBYTES);
}

std::string SigningKey::sign(std::span<const std::byte> bytes) const {
    unsigned char signature[crypto_sign_BYTES];
    if (crypto_sign_detached(signature, nullptr,
                             reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                             secret_.data()) != 0) {
        throw Failure(ExitCode::refused, "The archive could not be signed.");
    }
    return base64(signature, sizeof signature);
}

std::string publicKeyFrom(const std::string& keyOrFile) {
    if (updates::isPublicKey(keyOrFile)) {
        return keyOrFile;
    }
    const std::string text = readText(keyOrFile, 1024);
    std::string key = text.substr(0, text.find('\n'));
    if (!updates::isPublicKey(key)) {
        throw Failure(ExitCode::refused,
                      keyOrFile +
                          ": is not a public key. \"keygen\" wrote it to the file that ends "
                          "in .pub.");
    }
    return key;
}

} // namespace updates
