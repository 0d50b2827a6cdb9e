#include "platform/updates/install/installation_record.hpp"

#include "platform/updates/feed/version_order.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <ctime>

namespace platform {
namespace {

constexpr const char* recordFile = "record";
constexpr const char* newRecordFile = "record.new";
constexpr const char* newPointer = "state/current.new";
constexpr std::size_t longestRecord = 4096;

/// The whole of a small file; empty where there is none.
std::string contentOf(int folder, const char* name) {
    const Descriptor file(openat(folder, name, O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    std::array<char, longestRecord> buffer{};
    std::string content;
    while (file && content.size() < longestRecord) {
        const ssize_t count = read(file.get(), buffer.data(), buffer.size());
        if (count == 0 || (count < 0 && errno != EINTR)) {
            break;
        }
        content.append(buffer.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return content;
}

int writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(file, text.data(), text.size());
        if (count < 0 && errno != EINTR) {
            return errno;
        }
        text.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return 0;
}

/// Takes what comes before the next `separator`, and that, off a text.
std::string take(std::string_view& text, char separator) {
    const std::string_view part = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(text.size(), part.size() + 1));
    return std::string(part);
}

InstallationRecord parseRecord(std::string_view content) {
    InstallationRecord record;
    while (!content.empty()) {
        const std::string whole = take(content, '\n');
        std::string_view line = whole;
        const std::string key = take(line, ' ');
        const std::string version = take(line, ' ');
        if (!isVersion(version)) {
            continue;
        }
        if (key == "highest") {
            record.highest = version;
        } else if (key == "previous") {
            record.previous = version;
        } else if (key == "failed") {
            record.failed = version;
        } else if (key == "trial") {
            InstallationRecord::Trial trial{version, take(line, ' '), 0};
            const auto [end, error] =
                std::from_chars(line.data(), line.data() + line.size(), trial.starts);
            if (isVersion(trial.previous) && error == std::errc() && trial.starts >= 0) {
                record.trial = trial;
            }
        }
    }
    return record;
}

std::string recordText(const InstallationRecord& record) {
    std::string text;
    const auto add = [&text](const char* key, const std::string& version) {
        text += version.empty() ? "" : std::string(key) + ' ' + version + '\n';
    };
    add("highest", record.highest);
    add("previous", record.previous);
    add("failed", record.failed);
    if (record.trial) {
        add("trial", record.trial->version + ' ' + record.trial->previous + ' ' +
                         std::to_string(record.trial->starts));
    }
    return text;
}

} // namespace

Descriptor openFolder(int parent, const std::string& name) {
    return Descriptor(
        openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

Descriptor openFolder(const std::filesystem::path& path) {
    return openFolder(AT_FDCWD, path.string());
}

std::string currentVersion(int root) {
    std::array<char, 256> buffer{};
    const ssize_t length = readlinkat(root, currentName, buffer.data(), buffer.size());
    const std::string_view target(buffer.data(), length < 0 ? 0 : static_cast<std::size_t>(length));
    constexpr std::string_view folder = "versions/";
    if (!target.starts_with(folder) || !isVersion(target.substr(folder.size()))) {
        return {};
    }
    return std::string(target.substr(folder.size()));
}

InstallationRecord readRecord(int root, std::string_view current) {
    const Descriptor state = openFolder(root, stateName);
    auto record = parseRecord(state ? contentOf(state.get(), recordFile) : std::string());
    if (record.trial && record.trial->version != current) {
        record.trial.reset();
    }
    if (record.trial) { // it was installed, or it would not be the current one
        record.highest = record.trial->version;
    }
    return record;
}

int writeRecord(int root, const InstallationRecord& record) {
    const Descriptor state = openFolder(root, stateName);
    if (!state) {
        return errno;
    }
    Descriptor file(openat(state.get(), newRecordFile,
                           O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0644));
    if (!file) {
        return errno;
    }
    if (const int error = writeAll(file.get(), recordText(record)); error != 0) {
        return error;
    }
    if (fsync(file.get()) != 0 || !file.reset() ||
        renameat(state.get(), newRecordFile, state.get(), recordFile) != 0 ||
        fsync(state.get()) != 0) {
        return errno;
    }
    return 0;
}

int pointCurrentTo(int root, const std::string& version) {
    const std::string target = std::string(versionsName) + '/' + version;
    if ((unlinkat(root, newPointer, 0) != 0 && errno != ENOENT) ||
        symlinkat(target.c_str(), root, newPointer) != 0 ||
        renameat(root, newPointer, root, currentName) != 0) {
        return errno;
    }
    // It is done. Should the disk lose this rename, then the old version is still there, whole.
    fsync(root);
    return 0;
}

RecordLock::RecordLock(int root, Folder folder) {
    if (folder == Folder::make) {
        if (mkdirat(root, stateName, 0755) == 0) {
            error_ = fsync(root) == 0 ? 0 : errno;
        } else if (errno != EEXIST) {
            error_ = errno;
        }
    }
    if (error_ == 0) {
        state_ = openFolder(root, stateName);
        error_ = state_ ? lockFolder(state_.get(), Sharing::exclusive, 20) : errno;
    }
    if (error_ != 0) {
        state_.reset();
    }
}

int lockFolder(int folder, Sharing sharing, int tenths) {
    const int operation = (sharing == Sharing::shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    while (flock(folder, operation) != 0) {
        if (errno == EINTR) {
            continue;
        }
        if (errno != EWOULDBLOCK || tenths-- <= 0) {
            return errno;
        }
        const timespec tenth{0, 100'000'000};
        nanosleep(&tenth, nullptr);
    }
    return 0;
}

} // namespace platform
