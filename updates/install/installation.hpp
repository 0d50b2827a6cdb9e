#pragma once

#include <filesystem>
#include <string>

namespace updates {

/// Who looks after the files of the running program, and so who can update them.
enum class Management {
    itself, ///< the program: its folder is one that updates itself
    dpkg,   ///< the system's package manager
    flatpak,
    readOnly, ///< somebody else: nothing can be written there
    gone,     ///< nobody: what the program was started from is not there any more
    nobody    ///< nobody knows, for example a folder in which it was built
};

/// How an installation stands.
struct Installation {
    Management management = Management::nobody;
    std::filesystem::path
        root;         ///< the folder of launcher and versions; empty unless it has that shape
    std::string name; ///< of launcher and program in there; empty like `root`
    std::string
        runningVersion; ///< of the folder that the running program lies in; empty like `root`
    std::string highestInstalledVersion; ///< that was ever installed in `root`; empty like `root`
    std::string failedVersion; ///< the last one that did not start and was taken back; may be empty
    std::string packageName;   ///< the package, for dpkg and flatpak
};

/// Where an examination looks for what the system says; tests pass folders of their own.
struct SystemPlaces {
    std::filesystem::path dpkgInformation = "/var/lib/dpkg/info";
    std::filesystem::path flatpakInformation = "/.flatpak-info";
};

/// Finds out who manages the program whose file `executable` is (links in it are followed). Reads
/// the package manager's lists: not for the main thread. Any thread.
[[nodiscard]] Installation examineInstallation(const std::filesystem::path& executable,
                                               const SystemPlaces& places = {});

/// The program that starts the current version, now and after updates. Empty when there is none.
[[nodiscard]] std::filesystem::path launcher(const Installation& installation);

/// The install helper of the running version. Empty when there is none.
[[nodiscard]] std::filesystem::path installHelper(const Installation& installation);

/// The program has come up: if it is a new version on trial, it has passed. Without this two starts
/// bring the previous version back. Quick; any thread. False when the disk refused to note it.
bool confirmStart(const Installation& installation);

/// Removes what broken updates left behind, and all versions but the current one, the one before
/// it, and those that are running. Does nothing while another copy updates. Any thread, not the
/// main one.
void removeLeftovers(const Installation& installation);

/// Holds the files of the running version in place: as long as it lives no copy removes them. Make
/// it first thing in the program, before other programs are started.
class RunningCopy {
  public:
    /// Does nothing for a program that does not lie in an installation that updates itself.
    explicit RunningCopy(const std::filesystem::path& executable);
    ~RunningCopy();
    RunningCopy(const RunningCopy&) = delete;
    RunningCopy& operator=(const RunningCopy&) = delete;

    [[nodiscard]] bool holds() const { return lock_ >= 0; }

  private:
    int lock_ = -1;
};

} // namespace updates
