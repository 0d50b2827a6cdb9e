#include "updates/install/installation.hpp"

#include "updates/archive/archive_manifest.hpp"
#include "updates/feed/version_order.hpp"
#include "updates/install/installation_record.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <compare>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

namespace updates {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Place {
    fs::path root;
    std::string version;
    std::string name;
};

/// The installation that a program lies in, ROOT/versions/VERSION/bin/NAME, judging by its shape.
Place placeOf(const fs::path& executable) {
    std::error_code error;
    const fs::path program = fs::canonical(executable, error);
    const fs::path folder = program.parent_path().parent_path();
    const fs::path versions = folder.parent_path();
    Place place{versions.parent_path(), folder.filename(), program.filename()};
    const auto manifest = readArchiveManifest(contentOf(folder / "manifest.json"));
    if (error || versions.filename() != versionsName || !isVersion(place.version) || !manifest ||
        manifest->version != place.version || manifest->name != place.name ||
        !fs::is_regular_file(place.root / place.name, error) ||
        !fs::is_symlink(place.root / currentName, error)) {
        return {};
    }
    return place;
}

/// The Debian package that a file comes from; empty when it comes from none.
std::string packageOwning(const fs::path& file, const fs::path& information) {
    // Packages may list what lies in /usr under the name that it had before.
    std::vector<std::string> lines{'\n' + file.string() + '\n'};
    if (file.string().starts_with("/usr/")) {
        lines.push_back('\n' + file.string().substr(std::strlen("/usr")) + '\n');
    }
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(information, error)) {
        if (entry.path().extension() != ".list") {
            continue;
        }
        const std::string content = '\n' + contentOf(entry.path());
        if (std::ranges::any_of(lines, [&content](const std::string& line) {
                return content.find(line) != std::string::npos;
            })) {
            const std::string name = entry.path().stem().string();
            return name.substr(0, name.find(':')); // without the architecture
        }
    }
    return {};
}

/// The name that a Flatpak's information file gives: the line "name=" under "[Application]".
std::string flatpakName(const fs::path& information) {
    std::ifstream file(information);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("name=")) {
            return line.substr(std::strlen("name="));
        }
    }
    return {};
}

bool can(int what, const fs::path& file) {
    return faccessat(AT_FDCWD, file.c_str(), what, AT_EACCESS) == 0;
}

bool canUpdate(const fs::path& root) {
    constexpr int change = W_OK | X_OK;
    std::error_code error;
    const fs::path state = root / stateName;
    const fs::path lock = state / updateLockName;
    return can(change, root) && can(change, root / versionsName) &&
           (!fs::exists(state, error) || can(change, state)) &&
           (!fs::exists(lock, error) || can(R_OK | W_OK, lock));
}

/// Removes the versions that are neither current nor kept nor running.
void removeOldVersions(int root, const std::string& current, const std::string& kept) {
    const platform::Descriptor versions = platform::openFolder(root, versionsName);
    for (const std::string& name : platform::namesIn(versions.get())) {
        const auto folder = name == current || name == kept
                                ? platform::Descriptor()
                                : platform::openFolder(versions.get(), name);
        if (folder && platform::lock(folder.get(), platform::Sharing::exclusive) == 0) {
            // What stays is removed the next time.
            [[maybe_unused]] const int error = platform::removeTree(versions.get(), name);
        }
    }
}

/// The descriptor in which the launcher handed over its lock on `folder`; none without a launcher.
platform::Descriptor inheritedLock(const platform::Descriptor& folder) {
    // The program has no other threads yet.
    const char* const text = std::getenv(lockVariable); // NOLINT(concurrency-mt-unsafe)
    if (text == nullptr) {
        return {};
    }
    int number = -1;
    const auto [end, error] = std::from_chars(text, text + std::strlen(text), number);
    struct stat mine {};
    struct stat handed {};
    const bool isIt = error == std::errc() && *end == '\0' && number > STDERR_FILENO &&
                      fstat(folder.get(), &mine) == 0 && fstat(number, &handed) == 0 &&
                      mine.st_dev == handed.st_dev && mine.st_ino == handed.st_ino &&
                      fcntl(number, F_SETFD, FD_CLOEXEC) == 0;
    // It is not for the programs that this one starts.
    unsetenv(lockVariable); // NOLINT(concurrency-mt-unsafe)
    return isIt ? platform::Descriptor(number) : platform::Descriptor();
}

} // namespace

Installation examineInstallation(const fs::path& executable, const SystemPlaces& places) {
    std::error_code error;
    Installation found;
    if (fs::exists(places.flatpakInformation, error)) {
        found.management = Management::flatpak;
        found.packageName = flatpakName(places.flatpakInformation);
        return found;
    }
    const fs::path program = fs::canonical(executable, error);
    if (error) {
        found.management = Management::gone;
        return found;
    }
    found.packageName = packageOwning(program, places.dpkgInformation);
    if (!found.packageName.empty()) {
        found.management = Management::dpkg;
        return found;
    }
    const Place place = placeOf(program);
    if (place.root.empty()) {
        found.management =
            can(W_OK | X_OK, program.parent_path()) ? Management::nobody : Management::readOnly;
        return found;
    }
    found.root = place.root;
    found.name = place.name;
    found.runningVersion = place.version;
    found.management = canUpdate(place.root) ? Management::itself : Management::readOnly;
    if (const platform::Descriptor root = platform::openFolder(place.root)) {
        const std::string current = currentVersion(root.get());
        const InstallationRecord record = readRecord(root.get(), current);
        found.failedVersion = record.failed;
        found.highestInstalledVersion = place.version;
        for (const std::string& version : {record.highest, current}) {
            if (std::is_gt(compareVersions(version, found.highestInstalledVersion))) {
                found.highestInstalledVersion = version;
            }
        }
    }
    return found;
}

fs::path launcher(const Installation& installation) {
    return installation.root.empty() ? fs::path() : installation.root / installation.name;
}

fs::path installHelper(const Installation& installation) {
    if (installation.root.empty()) {
        return {};
    }
    const fs::path helper = installation.root / versionsName / installation.runningVersion /
                            helperPath(installation.name);
    return can(X_OK, helper) ? helper : fs::path();
}

bool confirmStart(const Installation& installation) {
    const platform::Descriptor root = platform::openFolder(installation.root);
    if (!root || !readRecord(root.get(), currentVersion(root.get())).trial) {
        return true;
    }
    const RecordLock lock(root.get());
    const std::string current = currentVersion(root.get());
    InstallationRecord record = readRecord(root.get(), current);
    if (!lock.holds()) {
        return false;
    }
    if (!record.trial || current != installation.runningVersion) {
        return true; // another copy was quicker, or another version is on trial
    }
    record.previous = record.trial->previous;
    if (record.failed == current) {
        record.failed.clear();
    }
    record.trial.reset();
    return writeRecord(root.get(), record) == 0;
}

void removeLeftovers(const Installation& installation) {
    const platform::Descriptor root = platform::openFolder(installation.root);
    const auto state = root ? platform::openFolder(root.get(), stateName) : platform::Descriptor();
    // Without what is remembered nothing was ever updated.
    const auto lock =
        state ? platform::openLockFile(state.get(), updateLockName) : platform::Descriptor();
    if (installation.management != Management::itself || !lock ||
        platform::lock(lock.get(), platform::Sharing::exclusive) != 0) {
        return;
    }
    std::string current;
    std::string kept;
    {
        const RecordLock recordLock(root.get());
        current = currentVersion(root.get());
        if (!recordLock.holds() || current.empty()) {
            return;
        }
        removeUnfinished(root.get());
        kept = readRecord(root.get(), current).kept();
    }
    // Whatever others do now, they never choose a version that is neither of the two.
    removeOldVersions(root.get(), current, kept);
}

RunningCopy::RunningCopy(const fs::path& executable) {
    const Place place = placeOf(executable);
    platform::Descriptor folder =
        place.root.empty() ? platform::Descriptor()
                           : platform::openFolder(place.root / versionsName / place.version);
    if (!folder) {
        return;
    }
    // Only for a moment it may be that somebody looks whether it is running.
    const platform::Descriptor handedOver = inheritedLock(folder);
    if (platform::lock(folder.get(), platform::Sharing::shared, 20) == 0) {
        lock_ = folder.release();
    }
}

RunningCopy::~RunningCopy() {
    if (lock_ >= 0) {
        close(lock_);
    }
}

} // namespace updates
