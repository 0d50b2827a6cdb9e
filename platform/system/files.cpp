#include "platform/system/files.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <grp.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <memory>

namespace platform {
namespace {

constexpr int asFolder = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

int result(bool isDone) {
    return isDone ? 0 : errno;
}

bool isDot(std::string_view name) {
    return name == "." || name == "..";
}

} // namespace

Descriptor openFolder(const std::filesystem::path& path) {
    return Descriptor(open(path.c_str(), asFolder));
}

Descriptor openFolder(int parent, const std::string& name) {
    return Descriptor(openat(parent, name.c_str(), asFolder));
}

int makeFolder(int parent, const std::string& name) {
    constexpr mode_t mode = 0755;
    if (mkdirat(parent, name.c_str(), mode) != 0) {
        return errno;
    }
    const Descriptor folder = openFolder(parent, name);
    return result(folder && fchmod(folder.get(), mode) == 0);
}

std::vector<std::string> namesIn(int folder) {
    std::vector<std::string> names;
    Descriptor again(openat(folder, ".", asFolder)); // with a place of its own in the list
    const std::unique_ptr<DIR, int (*)(DIR*)> list(fdopendir(again.get()), closedir);
    if (list == nullptr) {
        return names;
    }
    [[maybe_unused]] const int ofList = again.release();
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nobody else reads this list
    while (const dirent* const entry = readdir(list.get())) {
        if (!isDot(entry->d_name)) {
            names.emplace_back(entry->d_name);
        }
    }
    return names;
}

int removeTree(int parent, const std::string& name) {
    if (unlinkat(parent, name.c_str(), 0) == 0 || errno == ENOENT) {
        return 0;
    }
    if (errno != EISDIR &&
        errno != EPERM) { // which of the two a folder gives depends on the system
        return errno;
    }
    const int first = errno;
    if (const Descriptor folder = openFolder(parent, name)) {
        for (const std::string& inside : namesIn(folder.get())) {
            if (const int error = removeTree(folder.get(), inside); error != 0) {
                return error;
            }
        }
    } else {
        return errno == ENOTDIR || errno == ELOOP ? first : errno;
    }
    return result(unlinkat(parent, name.c_str(), AT_REMOVEDIR) == 0 || errno == ENOENT);
}

Descriptor openFile(int folder, const std::string& name) {
    return Descriptor(openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
}

Descriptor openFile(const std::filesystem::path& path) {
    return Descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

Descriptor makeFile(int folder, const std::string& name, unsigned mode) {
    Descriptor file(
        openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    return file && fchmod(file.get(), mode) == 0 ? std::move(file) : Descriptor();
}

bool isPrivate(int file) {
    struct stat status {};
    return fstat(file, &status) == 0 && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

int readSome(int file, std::span<char> buffer, std::size_t& count) {
    ssize_t size = 0;
    do {
        size = read(file, buffer.data(), buffer.size());
    } while (size < 0 && errno == EINTR);
    count = size < 0 ? 0 : static_cast<std::size_t>(size);
    return result(size >= 0);
}

int readAll(int file, std::uint64_t limit, const std::function<void(std::string_view)>& take) {
    struct stat status {};
    if (fstat(file, &status) != 0) {
        return errno;
    }
    if (!S_ISREG(status.st_mode)) {
        return EINVAL;
    }
    std::vector<char> buffer(std::size_t{64} << 10);
    std::size_t count = 0;
    for (std::uint64_t total = 0;; take({buffer.data(), count})) {
        if (const int error = readSome(file, buffer, count); error != 0 || count == 0) {
            return error;
        }
        total += count;
        if (total > limit) {
            return EFBIG;
        }
    }
}

std::string contentOf(int folder, const std::string& name, std::uint64_t limit) {
    const Descriptor file = openFile(folder, name);
    std::string content;
    const auto take = [&content](std::string_view piece) { content += piece; };
    return file && readAll(file.get(), limit, take) == 0 ? content : std::string();
}

int writeAll(int file, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return errno;
        }
        bytes = bytes.subspan(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return 0;
}

int writeAll(int file, std::string_view text) {
    return writeAll(file, std::as_bytes(std::span(text)));
}

int writeNewFile(int folder, const std::string& name, std::string_view content, unsigned mode) {
    Descriptor file = makeFile(folder, name, mode);
    if (!file) {
        return errno;
    }
    int error = writeAll(file.get(), content);
    error = error != 0 ? error : result(fsync(file.get()) == 0 && file.reset());
    if (error != 0) {
        unlinkat(folder, name.c_str(), 0);
        return error;
    }
    return result(fsync(folder) == 0);
}

std::string unfinishedName(const std::string& name) {
    return name + ".new";
}

int replaceFile(int folder, const std::string& name, std::string_view content, unsigned mode) {
    const std::string fresh = unfinishedName(name);
    if (unlinkat(folder, fresh.c_str(), 0) != 0 && errno != ENOENT) {
        return errno;
    }
    if (const int error = writeNewFile(folder, fresh, content, mode); error != 0) {
        return error;
    }
    return result(renameat(folder, fresh.c_str(), folder, name.c_str()) == 0 && fsync(folder) == 0);
}

int syncAll(int file) {
    return result(syncfs(file) == 0);
}

int lock(int file, Sharing sharing, int tenths) {
    const int operation = (sharing == Sharing::shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    while (flock(file, operation) != 0) {
        if (errno == EINTR) {
            continue;
        }
        if (errno != EWOULDBLOCK || tenths == 0) {
            return errno;
        }
        tenths -= tenths > 0 ? 1 : 0;
        const timespec tenth{0, 100'000'000};
        nanosleep(&tenth, nullptr);
    }
    return 0;
}

Descriptor openLockFile(int folder, const std::string& name) {
    constexpr mode_t mode = 0600; // who can open it can hold it
    constexpr int asLock = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    Descriptor file(openat(folder, name.c_str(), asLock));
    if (file || errno != ENOENT) {
        return file;
    }
    file = Descriptor(openat(folder, name.c_str(), asLock | O_CREAT, mode));
    struct stat owner {};
    const bool isOwners =
        !file || geteuid() != 0 ||
        (fstat(folder, &owner) == 0 &&
         (owner.st_uid == 0 || fchown(file.get(), owner.st_uid, owner.st_gid) == 0));
    return isOwners ? std::move(file) : Descriptor();
}

int becomeOwnerOf(int folder) {
    struct stat owner {};
    if (fstat(folder, &owner) != 0) {
        return errno;
    }
    if (geteuid() != 0 || owner.st_uid == 0) {
        return 0;
    }
    return result(setgroups(0, nullptr) == 0 && setgid(owner.st_gid) == 0 &&
                  setuid(owner.st_uid) == 0);
}

} // namespace platform
