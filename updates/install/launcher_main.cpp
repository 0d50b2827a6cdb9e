// The launcher, the one program of an installation that stays the same in all versions: starts the
// current version with the same arguments. A new version that did not come up twice is given up for
// the one before it.
#include "platform/updates/install/installation_record.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

namespace {

using namespace platform;
namespace fs = std::filesystem;

Descriptor openVersion(int root, const std::string& version) {
    const Descriptor versions = openFolder(root, versionsName);
    return versions && !version.empty() ? openFolder(versions.get(), version) : Descriptor();
}

/// Notes that a version on trial is started once more, or gives it up. Should the disk refuse, the
/// program is started all the same.
void countTrial(int root) {
    if (!readRecord(root, currentVersion(root)).trial) {
        return;
    }
    const RecordLock lock(root, RecordLock::Folder::mustExist);
    const std::string current = currentVersion(root);
    InstallationRecord record = readRecord(root, current);
    if (!lock.holds() || !record.trial) {
        return;
    }
    const Descriptor version = openVersion(root, current);
    if (version && lockFolder(version.get(), Sharing::exclusive) != 0) {
        return; // one that is coming up, or is up, has not failed
    }
    InstallationRecord::Trial& trial = *record.trial;
    if (trial.starts < mostTrialStarts) {
        ++trial.starts;
        [[maybe_unused]] const int error = writeRecord(root, record);
        return;
    }
    if (!openVersion(root, trial.previous)) {
        return; // there is nothing else to start
    }
    record.highest = trial.version;
    record.failed = trial.version;
    if (writeRecord(root, record) == 0) {
        [[maybe_unused]] const int error = pointCurrentTo(root, trial.previous);
    }
}

// NOLINTBEGIN(concurrency-mt-unsafe): the launcher has one thread.
/// Becomes the program of a version. Returns when there is none that runs.
void become(const fs::path& folder, int root, const std::string& version, char** arguments) {
    const Descriptor lock = openVersion(root, version);
    if (!lock) {
        return;
    }
    // From here on, and as long as the program runs, its files stay.
    if (lockFolder(lock.get(), Sharing::shared, 5) == 0 && fcntl(lock.get(), F_SETFD, 0) == 0) {
        setenv(lockVariable, std::to_string(lock.get()).c_str(), 1);
    }
    const std::string program = (folder / versionsName / version / programPath).string();
    std::string name = program;
    arguments[0] = name.data();
    execv(program.c_str(), arguments);
    unsetenv(lockVariable);
    std::fprintf(stderr, "Larkvox %s does not start: %s\n", version.c_str(), std::strerror(errno));
}
// NOLINTEND(concurrency-mt-unsafe)

} // namespace

int main(int argc, char** argv) {
    std::error_code error;
    const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
    const Descriptor root = openFolder(folder);
    if (!root || argc < 1) {
        std::fputs("Larkvox cannot find its folder.\n", stderr);
        return 127;
    }
    countTrial(root.get());
    const std::string current = currentVersion(root.get());
    become(folder, root.get(), current, argv);
    become(folder, root.get(), readRecord(root.get(), current).kept(), argv);
    std::fputs("Larkvox finds no version of itself that starts. Please install it again.\n",
               stderr);
    return 127;
}
