#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <system_error>

namespace platform {

/// A private file in memory that is written once and then sealed by the system: from then on
/// nobody, not even the owner of the machine's account, can change, shorten or lengthen it. What
/// was verified in it is therefore what is used. It has no name; it goes to another process by its
/// descriptor. One thread at a time.
class SealedFile {
  public:
    SealedFile() = default; ///< no file
    ~SealedFile();
    SealedFile(SealedFile&& other) noexcept;
    SealedFile& operator=(SealedFile&& other) noexcept;

    /// An empty file to write; no file where `error` is set. The label only shows in tools.
    [[nodiscard]] static SealedFile create(const char* label, std::error_code& error);

    /// Takes over a descriptor that came from another process and closes it in the end. No file
    /// and the error permission_denied where the descriptor is not of a file that is sealed against
    /// every change; then it is closed, too.
    [[nodiscard]] static SealedFile adopt(int descriptor, std::error_code& error);

    /// Writes at the end. After a failure the size is what was written until then.
    [[nodiscard]] std::error_code append(std::span<const std::byte> bytes);
    /// Throws away what was written. Not after sealing.
    [[nodiscard]] std::error_code clear();
    /// Ends the writing, for good.
    [[nodiscard]] std::error_code seal();

    /// The whole content, to read; made when it is first asked for, valid as long as the file. Only
    /// after sealing. Empty where `error` is set, and for an empty file.
    [[nodiscard]] std::span<const std::byte> map(std::error_code& error);

    [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] bool isSealed() const { return isSealed_; }
    [[nodiscard]] std::uint64_t size() const { return size_; } ///< bytes
    /// The descriptor, -1 without a file. It is closed on exec: a child gets a duplicate.
    [[nodiscard]] int fd() const { return descriptor_; }

  private:
    explicit SealedFile(int descriptor) : descriptor_(descriptor) {}
    void close();

    int descriptor_ = -1;
    bool isSealed_ = false;
    std::uint64_t size_ = 0;
    const std::byte* mapping_ = nullptr;
};

} // namespace platform
