#include "publisher/files.hpp"

#include "publisher/failure.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <vector>

namespace publisher {
namespace {

namespace fs = std::filesystem;
using platform::Descriptor;

[[noreturn]] void fail(const fs::path& path, const char* what, int error) {
    throw Failure(ExitCode::inputOutput,
                  path.string() + ": " + what + ": " + std::generic_category().message(error));
}

/// Hands a regular file to `take`, piece by piece.
template<class Take>
void readPieces(const fs::path& path, std::uint64_t limit, Take take) {
    // Not waiting: somebody may give a pipe for a file.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file || fstat(file.get(), &status) != 0) {
        fail(path, "cannot be read", errno);
    }
    if (!S_ISREG(status.st_mode)) {
        throw Failure(ExitCode::inputOutput, path.string() + ": is not a file");
    }
    std::vector<char> buffer(std::size_t{1} << 20);
    std::uint64_t total = 0;
    for (;;) {
        const ssize_t size = read(file.get(), buffer.data(), buffer.size());
        if (size < 0 && errno == EINTR) {
            continue;
        }
        if (size < 0) {
            fail(path, "cannot be read", errno);
        }
        if (size == 0) {
            return;
        }
        total += static_cast<std::uint64_t>(size);
        if (total > limit) {
            throw Failure(ExitCode::refused, path.string() + ": is larger than the " +
                                                 std::to_string(limit) + " bytes that are allowed");
        }
        take(std::string_view(buffer.data(), static_cast<std::size_t>(size)));
    }
}

/// The first error, or 0.
int writeAll(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t size = write(descriptor, content.data(), content.size());
        if (size < 0 && errno == EINTR) {
            continue;
        }
        if (size < 0) {
            return errno;
        }
        content.remove_prefix(static_cast<std::size_t>(size));
    }
    return fsync(descriptor) == 0 ? 0 : errno;
}

fs::path folderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// Makes a new name, or a changed one, safe on the disk.
void syncFolder(const fs::path& folder) {
    const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor || fsync(descriptor.get()) != 0) {
        fail(folder, "cannot be written", errno);
    }
}

} // namespace

platform::SealedFile readCopy(const fs::path& path, std::uint64_t limit) {
    std::error_code error;
    auto copy = platform::SealedFile::create("archive", error);
    const auto check = [&path, &error] {
        if (error) {
            fail(path, "cannot be copied to memory", error.value());
        }
    };
    check();
    readPieces(path, limit, [&](std::string_view piece) {
        error = copy.append(std::as_bytes(std::span(piece)));
        check();
    });
    error = copy.seal();
    check();
    return copy;
}

std::string readText(const fs::path& path, std::uint64_t limit) {
    std::string text;
    readPieces(path, limit, [&text](std::string_view piece) { text += piece; });
    return text;
}

void writeNewFile(const fs::path& path, std::string_view content, mode_t mode) {
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!file) {
        if (errno == EEXIST) {
            throw Failure(ExitCode::refused,
                          path.string() + ": there is such a file, and it is not overwritten");
        }
        fail(path, "cannot be made", errno);
    }
    if (const int error = writeAll(file.get(), content); error != 0) {
        unlink(path.c_str());
        fail(path, "cannot be written", error);
    }
    syncFolder(folderOf(path));
}

void replaceFile(const fs::path& path, std::string_view content) {
    // A link stays one, and what it leads to is replaced.
    std::error_code unresolved;
    const fs::path target = fs::weakly_canonical(path, unresolved);
    const fs::path& place = unresolved ? path : target;
    struct stat status {};
    const bool isThere = stat(place.c_str(), &status) == 0;

    std::string temporary = place.string() + ".XXXXXX";
    const Descriptor file(mkostemp(temporary.data(), O_CLOEXEC));
    if (!file) {
        fail(path, "cannot be written", errno);
    }
    int error = writeAll(file.get(), content);
    if (error == 0 && fchmod(file.get(), isThere ? status.st_mode & 07777U : 0644U) != 0) {
        error = errno;
    }
    if (error == 0 && rename(temporary.c_str(), place.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) {
        unlink(temporary.c_str());
        fail(path, "cannot be written", error);
    }
    syncFolder(folderOf(place));
}

Descriptor lockFolder(const fs::path& folder) {
    Descriptor lock(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!lock) {
        fail(folder, "cannot be opened", errno);
    }
    while (flock(lock.get(), LOCK_EX) != 0) {
        if (errno != EINTR) {
            fail(folder, "cannot be locked", errno);
        }
    }
    return lock;
}

} // namespace publisher
