#include "platform/system/sealed_file.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace platform {
namespace {

constexpr int allSeals = F_SEAL_WRITE | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL;

std::error_code lastError() {
    return {errno, std::system_category()};
}

} // namespace

SealedFile::~SealedFile() {
    close();
}

SealedFile::SealedFile(SealedFile&& other) noexcept {
    *this = std::move(other);
}

SealedFile& SealedFile::operator=(SealedFile&& other) noexcept {
    if (this != &other) {
        close();
        descriptor_ = std::exchange(other.descriptor_, -1);
        isSealed_ = std::exchange(other.isSealed_, false);
        size_ = std::exchange(other.size_, 0);
        mapping_ = std::exchange(other.mapping_, nullptr);
    }
    return *this;
}

void SealedFile::close() {
    if (mapping_ != nullptr) {
        munmap(const_cast<std::byte*>(mapping_), size_);
    }
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

SealedFile SealedFile::create(const char* label, std::error_code& error) {
    error.clear();
    SealedFile file(memfd_create(label, MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!file.isOpen()) {
        error = lastError();
    }
    return file;
}

SealedFile SealedFile::adopt(int descriptor, std::error_code& error) {
    error.clear();
    SealedFile file(descriptor);
    struct stat status {};
    // Only files that can be sealed answer the first question.
    const int seals = fcntl(descriptor, F_GET_SEALS);
    if (seals < 0 || (seals & allSeals) != allSeals || fstat(descriptor, &status) != 0 ||
        fcntl(descriptor, F_SETFD, FD_CLOEXEC) != 0) {
        error = std::make_error_code(std::errc::permission_denied);
        return {};
    }
    file.size_ = static_cast<std::uint64_t>(status.st_size);
    file.isSealed_ = true;
    return file;
}

std::error_code SealedFile::append(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t written =
            pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(size_));
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            return lastError();
        }
        size_ += static_cast<std::uint64_t>(written);
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return {};
}

std::error_code SealedFile::clear() {
    if (ftruncate(descriptor_, 0) != 0) {
        return lastError();
    }
    size_ = 0;
    return {};
}

std::error_code SealedFile::seal() {
    if (fcntl(descriptor_, F_ADD_SEALS, allSeals) != 0) {
        return lastError();
    }
    isSealed_ = true;
    return {};
}

std::span<const std::byte> SealedFile::map(std::error_code& error) {
    error.clear();
    if (!isSealed_) {
        error = std::make_error_code(std::errc::operation_not_permitted);
        return {};
    }
    if (mapping_ == nullptr && size_ > 0) {
        // Sealed files can only be mapped privately or for reading.
        void* const mapping = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, descriptor_, 0);
        if (mapping == MAP_FAILED) {
            error = lastError();
            return {};
        }
        mapping_ = static_cast<const std::byte*>(mapping);
    }
    return {mapping_, static_cast<std::size_t>(size_)};
}

} // namespace platform
