// The launcher, the one program of an installation that stays the same in all versions: starts the
// current version with the same arguments. A new version that did not come up twice is given up for
// the one before it.
#include "platform/system/process.hpp"
#include "updates/archive/archive_manifest.hpp"
#include "updates/install/installation_record.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

namespace {

using namespace updates;
namespace fs = std::filesystem;

platform::Descriptor openVersion(int root, const std::string& version) {
    const platform::Descriptor versions = platform::openFolder(root, versionsName);
    return versions && !version.empty() ? platform::openFolder(versions.get(), version)
                                        : platform::Descriptor();
}

/// Whoever has closed their end of the pipe does not keep it from going on.
void say(const std::string& line) {
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    std::fprintf(stderr, "%s\n", line.c_str());
    std::signal(SIGPIPE, before);
}

/// Notes that a version on trial is started once more, or gives it up. Should the disk refuse, the
/// program is started all the same. A start that finds no screen says nothing of the version.
void countTrial(int root) {
    if (!readRecord(root, currentVersion(root)).trial || !platform::canShowWindows()) {
        return;
    }
    const RecordLock lock(root);
    const std::string current = currentVersion(root);
    InstallationRecord record = readRecord(root, current);
    if (!lock.holds() || !record.trial) {
        return;
    }
    const platform::Descriptor version = openVersion(root, current);
    if (version && platform::lock(version.get(), platform::Sharing::exclusive) != 0) {
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
    const platform::Descriptor lock = openVersion(root, version);
    if (!lock) {
        return;
    }
    // From here on, and as long as the program runs, its files stay.
    if (platform::lock(lock.get(), platform::Sharing::shared, 5) == 0 &&
        fcntl(lock.get(), F_SETFD, 0) == 0) {
        setenv(lockVariable, std::to_string(lock.get()).c_str(), 1);
    }
    const std::string program =
        (folder / versionsName / version / programPath(PRODUCT_NAME)).string();
    std::string name = program;
    arguments[0] = name.data();
    execv(program.c_str(), arguments);
    unsetenv(lockVariable);
    say(std::string(PRODUCT " ") + version + " does not start: " + std::strerror(errno));
}
// NOLINTEND(concurrency-mt-unsafe)

} // namespace

int main(int argc, char** argv) {
    std::error_code error;
    const fs::path folder = fs::read_symlink(platform::programFile(), error).parent_path();
    const platform::Descriptor root = platform::openFolder(folder);
    if (!root || argc < 1) {
        say(PRODUCT " cannot find its folder.");
        return 127;
    }
    countTrial(root.get());
    const std::string current = currentVersion(root.get());
    become(folder, root.get(), current, argv);
    become(folder, root.get(), readRecord(root.get(), current).kept(), argv);
    say(PRODUCT " finds no version of itself that starts. Please install it again.");
    return 127;
}
