#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

// The publisher's program has one thread.
namespace updates {

/// The maker's private key. It lives in one file that only its owner can read, never appears in a
/// command line or in what the program prints, and is wiped from memory in the end.
class SigningKey {
  public:
    /// Draws a new key and writes it to `path`, and the public one to `path` with ".pub" behind it.
    /// Existing files stay, and the call fails.
    [[nodiscard]] static SigningKey create(const std::filesystem::path& path);

    /// Reads a key file. One that others can read is refused.
    [[nodiscard]] static SigningKey load(const std::filesystem::path& path);

    ~SigningKey();
    SigningKey(SigningKey&& other) noexcept;
    SigningKey& operator=(SigningKey&&) = delete;

    [[nodiscard]] std::string publicKey() const; ///< base64

    /// The Ed25519 signature over all the bytes, in base64.
    [[nodiscard]] std::string sign(std::span<const std::byte> bytes) const;

  private:
    SigningKey() = default;

    std::array<unsigned char, 64> secret_{}; // the seed and the public key
};

/// A public key in base64, given as such or as the file that has it in its first line.
[[nodiscard]] std::string publicKeyFrom(const std::string& keyOrFile);

} // namespace updates
