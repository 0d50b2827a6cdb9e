#pragma once

#include "updates/install/install_protocol.hpp"
#include "updates/testing/archive_maker.hpp"

#include <sys/types.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace updates::testing {

/// The text of a program file for `goodUpdate`: it comes up, says its version and its arguments,
/// confirms its start and tidies up; with the argument --stay it stays until its input ends.
[[nodiscard]] std::string workingProgram();
/// One that ends before it has come up.
[[nodiscard]] std::string brokenProgram();

/// An installation on the disk, version 1.0.0, with the real launcher; removed in the end.
class InstalledCopy {
  public:
    /// In a folder of its own below another one; empty: that for temporary files.
    explicit InstalledCopy(const std::filesystem::path& below = {});
    ~InstalledCopy();
    InstalledCopy(const InstalledCopy& other); ///< another one on the disk, as that is now
    InstalledCopy& operator=(const InstalledCopy&) = delete;

    [[nodiscard]] const std::filesystem::path& root() const { return root_; }
    [[nodiscard]] std::filesystem::path launcher() const { return root_ / "larkvox"; }
    /// What is in the folder of versions, in order.
    [[nodiscard]] std::vector<std::string> versions() const;
    [[nodiscard]] std::string current() const; ///< where the pointer leads
    /// Everything but what is remembered.
    [[nodiscard]] std::map<std::string, std::string> content() const;

  private:
    std::filesystem::path place_; // a folder of its own around the root: what must stay untouched
    std::filesystem::path root_;
};

/// Every file below a folder with its content, folders and links with their kind.
[[nodiscard]] std::map<std::string, std::string> treeContent(const std::filesystem::path& folder);

/// A child process with its output, and its input if wanted.
class Child {
  public:
    /// `inherited` is a descriptor that the child gets as `inheritedNumber`; -1: none.
    explicit Child(const std::vector<std::string>& command, int inherited = -1, uid_t user = 0);
    ~Child(); ///< ends it
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    static constexpr int inheritedNumber = 99;

    void say(const std::string& text) const;
    void closeInput();
    /// The next line of its output; nothing at the end.
    [[nodiscard]] std::optional<std::string> readLine();
    /// Closes its input, reads all of its output and waits. The exit code, or minus the signal.
    int finish(std::string* output = nullptr);
    void kill() const;

  private:
    pid_t process_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::string buffer_;
};

/// What a program said and how it ended.
struct Outcome {
    std::string output;
    int code = 0;
};
[[nodiscard]] Outcome runProgram(const std::vector<std::string>& command);

/// A request for an update to be installed in a copy, as it should be.
[[nodiscard]] InstallRequest goodRequest(const InstalledCopy& copy,
                                         const std::vector<std::byte>& archive,
                                         const std::string& version);

/// The real helper at work on an archive in a sealed file.
class HelperRun {
  public:
    HelperRun(const InstallRequest& request, const std::vector<std::byte>& archive,
              std::vector<std::string> before = {}, uid_t user = 0);

    /// Reads until it is ready or has ended. True when it is ready.
    bool waitUntilReady();
    /// Says `install` and waits for the end. What it said last.
    std::optional<InstallMessage> install();
    std::optional<InstallMessage> finish(); ///< what it said last
    [[nodiscard]] const std::vector<InstallMessage>& said() const { return said_; }
    [[nodiscard]] int code() const { return code_; }
    [[nodiscard]] Child& child() { return child_; }

  private:
    bool readMessage();

    Child child_;
    std::vector<InstallMessage> said_;
    int code_ = 0;
};

/// Why it was refused; nothing when it was not.
[[nodiscard]] std::optional<UpdateProblem> faultOf(const std::optional<InstallMessage>& message);

/// Installs an update from beginning to end; what the helper said last.
std::optional<InstallMessage> installUpdate(const InstalledCopy& copy, const std::string& version,
                                            const std::string& program = workingProgram());

} // namespace updates::testing
