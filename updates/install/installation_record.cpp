#include "updates/install/installation_record.hpp"

#include "updates/feed/version_order.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>

namespace updates {
namespace {

using platform::Descriptor;

constexpr const char* recordName = "record";
constexpr const char* recordLockName = "record.lock";
constexpr const char* reserveName = "reserve";
constexpr const char* newPointer = "current.new";
constexpr std::size_t longestRecord = 4096;
constexpr off_t reserveSize = 64 << 10; // a file, a link and their names, wherever blocks are small

/// Takes what comes before the next `separator`, and that, off a text.
std::string take(std::string_view& text, char separator) {
    const std::string_view part = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(text.size(), part.size() + 1));
    return std::string(part);
}

/// Does something in the state folder, with the reserve's room if there is no other.
template<class Change>
int change(int root, Change make) {
    const Descriptor state = platform::openFolder(root, stateName);
    if (!state) {
        return errno;
    }
    const int error = make(state.get());
    const bool isFull = error == ENOSPC || error == EDQUOT;
    return isFull && unlinkat(state.get(), reserveName, 0) == 0 ? make(state.get()) : error;
}

} // namespace

InstallationRecord parseRecord(std::string_view text) {
    InstallationRecord record;
    while (!text.empty()) {
        const std::string whole = take(text, '\n');
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
    const Descriptor state = platform::openFolder(root, stateName);
    auto record = parseRecord(state ? platform::contentOf(state.get(), recordName, longestRecord)
                                    : std::string());
    if (record.trial && record.trial->version != current) {
        record.trial.reset();
    }
    if (record.trial) { // it was installed, or it would not be the current one
        record.highest = record.trial->version;
    }
    return record;
}

int makeState(int root) {
    Descriptor state = platform::openFolder(root, stateName);
    if (!state && errno == ENOENT) {
        const int error = platform::makeFolder(root, stateName);
        if (error != 0 || fsync(root) != 0) {
            return error != 0 ? error : errno;
        }
        state = platform::openFolder(root, stateName);
    }
    return state && platform::openLockFile(state.get(), recordLockName) ? 0 : errno;
}

int writeRecord(int root, const InstallationRecord& record) {
    return change(root, [text = recordText(record)](int state) {
        return platform::replaceFile(state, recordName, text, 0644);
    });
}

int pointCurrentTo(int root, const std::string& version) {
    const std::string target = std::string(versionsName) + '/' + version;
    const int error = change(root, [&](int state) {
        const bool isDone = (unlinkat(state, newPointer, 0) == 0 || errno == ENOENT) &&
                            symlinkat(target.c_str(), state, newPointer) == 0 &&
                            renameat(state, newPointer, root, currentName) == 0;
        return isDone ? 0 : errno;
    });
    if (error == 0) {
        // It is done. Should the disk lose this rename, then the old version is still there, whole.
        fsync(root);
    }
    return error;
}

int reserveRoom(int root) {
    const Descriptor state = platform::openFolder(root, stateName);
    if (!state) {
        return errno;
    }
    if (unlinkat(state.get(), reserveName, 0) != 0 && errno != ENOENT) { // of unknown size
        return errno;
    }
    const Descriptor file = platform::makeFile(state.get(), reserveName, 0600);
    const int error = file ? posix_fallocate(file.get(), 0, reserveSize) : errno;
    if (file && error != 0) {
        unlinkat(state.get(), reserveName, 0); // half of it is none
    }
    return error;
}

RecordLock::RecordLock(int root) {
    const Descriptor state = platform::openFolder(root, stateName);
    lock_ = state ? platform::openLockFile(state.get(), recordLockName) : Descriptor();
    error_ = lock_ ? platform::lock(lock_.get(), platform::Sharing::exclusive, 20) : errno;
}

void removeUnfinished(int root) {
    // What stays is removed the next time.
    [[maybe_unused]] int error = platform::removeTree(root, stagingName);
    if (const Descriptor state = platform::openFolder(root, stateName)) {
        for (const std::string& name :
             {platform::unfinishedName(recordName), std::string(newPointer)}) {
            error = platform::removeTree(state.get(), name);
        }
    }
}

} // namespace updates
