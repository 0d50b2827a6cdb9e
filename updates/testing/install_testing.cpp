#include "updates/testing/install_testing.hpp"

#include "platform/system/sealed_file.hpp"
#include "updates/testing/test_key.hpp"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <utility>

namespace updates::testing {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void giveUp(const char* what) {
    std::perror(what);
    std::abort();
}

fs::path makePlace(const fs::path& below = {}) {
    std::string pattern =
        ((below.empty() ? fs::temp_directory_path() : below) / "larkvox-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        giveUp("mkdtemp");
    }
    fs::permissions(pattern, fs::perms(0755));
    return pattern;
}

platform::SealedFile sealedCopy(const std::vector<std::byte>& bytes) {
    std::error_code error;
    platform::SealedFile file = platform::SealedFile::create("update", error);
    if (error || file.append(bytes) || file.seal()) {
        giveUp("sealed file");
    }
    return file;
}

std::vector<std::string> helperCommand(InstallRequest request, std::vector<std::string> before) {
    request.archive = Child::inheritedNumber;
    before.emplace_back(TEST_HELPER);
    std::ranges::move(installArguments(request), std::back_inserter(before));
    return before;
}

} // namespace

std::string workingProgram() {
    return std::string("#!/bin/sh\nexec '") + TEST_PROGRAM + "' \"$0\" \"$@\"\n";
}

std::string brokenProgram() {
    return "#!/bin/sh\nexit 3\n";
}

InstalledCopy::InstalledCopy(const fs::path& below)
    : place_(makePlace(below)), root_(place_ / "Larkvox") {
    // Starts count as they do where there is a screen.
    setenv("QT_QPA_PLATFORM", "offscreen", 0); // NOLINT(concurrency-mt-unsafe)
    for (const MadeEntry& entry : goodUpdate("1.0.0", workingProgram())) {
        const fs::path path = place_ / entry.name;
        if (entry.type == MadeEntry::Type::folder) {
            fs::create_directory(path);
        } else if (entry.type == MadeEntry::Type::symbolicLink) {
            fs::create_symlink(entry.content, path);
        } else {
            std::ofstream(path, std::ios::binary) << entry.content;
            fs::permissions(path, fs::perms(entry.mode));
        }
    }
    fs::remove(launcher());
    fs::copy_file(TEST_LAUNCHER, launcher());
}

InstalledCopy::InstalledCopy(const InstalledCopy& other)
    : place_(makePlace()), root_(place_ / "Larkvox") {
    fs::copy(other.place_, place_, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
}

InstalledCopy::~InstalledCopy() {
    std::error_code error;
    fs::remove_all(place_, error);
}

std::vector<std::string> InstalledCopy::versions() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(root_ / "versions")) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

std::string InstalledCopy::current() const {
    return fs::read_symlink(root_ / "current").string();
}

std::map<std::string, std::string> InstalledCopy::content() const {
    auto content = treeContent(place_);
    std::erase_if(content,
                  [](const auto& entry) { return entry.first.starts_with("Larkvox/state"); });
    return content;
}

std::map<std::string, std::string> treeContent(const fs::path& folder) {
    std::map<std::string, std::string> content;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const fs::path& path = entry.path();
        std::string& text = content[path.lexically_relative(folder).string()];
        const auto permissions = static_cast<unsigned>(entry.symlink_status().permissions());
        if (entry.is_symlink()) {
            text = "link " + fs::read_symlink(path).string();
        } else if (entry.is_regular_file()) {
            std::ifstream file(path, std::ios::binary);
            text = "file " + std::to_string(permissions) + ' ' +
                   std::string(std::istreambuf_iterator<char>(file), {});
        } else {
            text = (entry.is_directory() ? "folder " : "other ") + std::to_string(permissions);
        }
    }
    return content;
}

Child::Child(const std::vector<std::string>& command, int inherited, uid_t user) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    int input[2];
    int output[2];
    if (pipe2(input, O_CLOEXEC) != 0 || pipe2(output, O_CLOEXEC) != 0) {
        giveUp("pipe");
    }
    process_ = fork();
    if (process_ == 0) {
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        if ((inherited >= 0 && dup2(inherited, inheritedNumber) < 0) ||
            (user != 0 && setuid(user) != 0)) {
            _exit(126);
        }
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    close(input[0]);
    close(output[1]);
    if (process_ < 0) {
        giveUp("fork");
    }
    input_ = input[1];
    output_ = output[0];
}

Child::~Child() {
    if (process_ > 0) {
        kill();
        finish();
    }
}

void Child::say(const std::string& text) const {
    // One that has refused and gone hears nothing: no reason for the test to die. Its children are
    // to find the signal as they would elsewhere, so it is ignored only here.
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    [[maybe_unused]] const ssize_t count = write(input_, text.data(), text.size());
    std::signal(SIGPIPE, before);
}

void Child::closeInput() {
    if (input_ >= 0) {
        close(std::exchange(input_, -1));
    }
}

std::optional<std::string> Child::readLine() {
    while (true) {
        if (const auto end = buffer_.find('\n'); end != std::string::npos) {
            std::string line = buffer_.substr(0, end);
            buffer_.erase(0, end + 1);
            return line;
        }
        char bytes[4096];
        const ssize_t count = output_ < 0 ? 0 : read(output_, bytes, sizeof bytes);
        if (count == 0 || (count < 0 && errno != EINTR)) {
            return std::nullopt;
        }
        buffer_.append(bytes, count < 0 ? 0 : static_cast<std::size_t>(count));
    }
}

int Child::finish(std::string* output) {
    closeInput();
    while (const auto line = readLine()) {
        if (output != nullptr) {
            *output += *line + '\n';
        }
    }
    close(std::exchange(output_, -1));
    int status = 0;
    while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void Child::kill() const {
    ::kill(process_, SIGKILL);
}

Outcome runProgram(const std::vector<std::string>& command) {
    Outcome outcome;
    outcome.code = Child(command).finish(&outcome.output);
    return outcome;
}

InstallRequest goodRequest(const InstalledCopy& copy, const std::vector<std::byte>& archive,
                           const std::string& version) {
    return {copy.root(), Child::inheritedNumber, archive.size(), testSignature(archive), version,
            "1.0.0"};
}

HelperRun::HelperRun(const InstallRequest& request, const std::vector<std::byte>& archive,
                     std::vector<std::string> before, uid_t user)
    : child_(helperCommand(request, std::move(before)), sealedCopy(archive).fd(), user) {}

bool HelperRun::readMessage() {
    const auto line = child_.readLine();
    const auto message = line ? readInstallLine(*line) : std::nullopt;
    if (message) {
        said_.push_back(*message);
    }
    return message.has_value();
}

bool HelperRun::waitUntilReady() {
    while (readMessage()) {
        if (std::holds_alternative<InstallReady>(said_.back())) {
            return true;
        }
    }
    return false;
}

std::optional<InstallMessage> HelperRun::install() {
    child_.say(std::string(installCommand) + '\n');
    while (readMessage()) {
    }
    return finish();
}

std::optional<InstallMessage> HelperRun::finish() {
    child_.closeInput();
    while (readMessage()) {
    }
    code_ = child_.finish();
    return said_.empty() ? std::nullopt : std::optional(said_.back());
}

std::optional<UpdateProblem> faultOf(const std::optional<InstallMessage>& message) {
    const auto* const refused = message ? std::get_if<Refusal>(&*message) : nullptr;
    return refused == nullptr ? std::nullopt : std::optional(refused->problem);
}

std::optional<InstallMessage> installUpdate(const InstalledCopy& copy, const std::string& version,
                                            const std::string& program) {
    const auto archive = makeArchive(goodUpdate(version, program));
    auto request = goodRequest(copy, archive, version);
    request.installed = copy.current().substr(std::string("versions/").size());
    return HelperRun(request, archive).install();
}

} // namespace updates::testing
