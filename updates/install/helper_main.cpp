// The install helper: verifies, unpacks and installs one update for a program that runs on. Its
// command line and what it says are in install_protocol.hpp.
#include "platform/system/process.hpp"
#include "platform/system/sealed_file.hpp"
#include "updates/install/installer.hpp"
#include "updates/install/update_key.hpp"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <optional>
#include <string>

namespace {

using namespace updates;

/// What the program wants.
enum class Wish { install, cancel };

/// The lines that the program sends. Its end counts as "cancel", and so does what is not
/// understood.
class Commands {
  public:
    /// The next one; without waiting: nothing when none is there yet.
    std::optional<Wish> next(bool isWaiting) {
        while (true) {
            if (const auto end = text_.find('\n'); end != std::string::npos) {
                const bool isInstall = text_.substr(0, end) == installCommand;
                text_.erase(0, end + 1);
                return isInstall ? Wish::install : Wish::cancel;
            }
            pollfd input{STDIN_FILENO, POLLIN, 0};
            const int ready = poll(&input, 1, isWaiting ? -1 : 0);
            if (ready == 0) {
                return std::nullopt;
            }
            char bytes[64];
            const ssize_t count = ready < 0 ? -1 : read(STDIN_FILENO, bytes, sizeof bytes);
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count <= 0 || text_.size() > sizeof bytes) {
                return Wish::cancel;
            }
            text_.append(bytes, static_cast<std::size_t>(count));
        }
    }

  private:
    std::string text_;
};

/// False when nobody listens any more.
bool say(const InstallMessage& message) {
    const std::string line = installLine(message) + '\n';
    return std::fputs(line.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
}

int refuse(const Refusal& refusal) {
    say(refusal);
    return 1;
}

/// Says how far it is, in hundredths, and looks whether it is to go on.
class Progress {
  public:
    Progress(Commands& commands, std::uint64_t total) : commands_(commands), total_(total) {}

    bool operator()(std::uint64_t done) {
        if (const auto command = commands_.next(false)) {
            isInstalling_ = *command == Wish::install;
            if (!isInstalling_) {
                return false;
            }
        }
        const std::uint64_t hundredth = total_ == 0 ? 100 : std::min(done, total_) * 100 / total_;
        if (hundredth == said_) {
            return true;
        }
        said_ = hundredth;
        return say(InstallProgress{std::min(done, total_), total_});
    }

    /// The command to install has come already.
    [[nodiscard]] bool isInstalling() const { return isInstalling_; }

  private:
    Commands& commands_;
    std::uint64_t total_;
    std::uint64_t said_ = 101;
    bool isInstalling_ = false;
};

int run(const InstallRequest& request) {
    std::error_code error;
    platform::SealedFile archive = platform::SealedFile::adopt(request.archive, error);
    const auto bytes = error ? std::span<const std::byte>() : archive.map(error);
    if (error) {
        return refuse({UpdateProblem::archiveDamaged, "not a sealed file: " + error.message()});
    }
    Commands commands;
    Progress progress(commands, bytes.size());
    Installer installer({updatePublicKey, PRODUCT, PRODUCT_NAME, PRODUCT_IDENTIFIER,
                         std::string(platform::thisPlatform())},
                        request);
    if (!say(InstallVerifying{})) {
        return 0;
    }
    if (const auto refusal = installer.stage(bytes, std::ref(progress))) {
        return installer.wasCancelled() ? 0 : refuse(*refusal);
    }
    if (!say(InstallReady{}) ||
        (!progress.isInstalling() && commands.next(true) != Wish::install)) {
        return 0;
    }
    if (const auto refusal = installer.install()) {
        return refuse(*refusal);
    }
    say(InstallDone{request.version});
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // that nobody listens shows when writing
    const auto request = readInstallArguments(
        std::span<const char* const>(argv, static_cast<std::size_t>(argc)).subspan(1));
    if (!request) {
        std::fputs(PRODUCT_NAME "-install is run by " PRODUCT " when it updates itself.\n", stderr);
        return 2;
    }
    return run(*request);
}
