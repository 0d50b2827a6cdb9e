// window_start PROGRAM BARE_PROGRAM: from exec to the first picture on the screen, and the resident
// memory after it, of the program over those of a bare window, in turn.

#include "bench/figure.hpp"

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int rounds = 10;

/// Looks at the header of a window at the top left of the screen.
class Screen {
  public:
    Screen() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_) != 0) {
            std::fprintf(stderr, "no X server\n");
            std::exit(1);
        }
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    }

    /// Whether a glowing part of the waveform, or the bare window's green, is in the strip beside
    /// the name. Plain ground, a black screen or white text are not.
    bool showsPicture() {
        constexpr std::uint16_t width = 110;
        constexpr std::uint16_t height = 160;
        xcb_get_image_reply_t* const reply =
            xcb_get_image_reply(connection_,
                                xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_, 15, 70,
                                              width, height, ~0U),
                                nullptr);
        if (reply == nullptr) {
            return false;
        }
        int bright = 0;
        const std::span<const std::uint8_t> bytes(
            xcb_get_image_data(reply), static_cast<std::size_t>(xcb_get_image_data_length(reply)));
        for (std::size_t i = 0; i + 3 < bytes.size(); i += 4) {
            const int strongest = std::max({bytes[i], bytes[i + 1], bytes[i + 2]});
            const int weakest = std::min({bytes[i], bytes[i + 1], bytes[i + 2]});
            bright += strongest > 90 && strongest - weakest > 40 ? 1 : 0;
        }
        std::free(reply);
        return bright > 20;
    }

  private:
    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
};

double residentMiB(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    std::string word;
    while (status >> word) {
        if (word == "VmRSS:") {
            double kib = 0;
            status >> kib;
            return kib / 1024;
        }
    }
    return 0;
}

struct Run {
    double milliseconds;
    double mebibytes;
};

Run start(const char* program, std::chrono::milliseconds staying) {
    Screen screen;
    while (screen.showsPicture()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5)); // the window before is going
    }
    const auto begin = Clock::now();
    const pid_t process = fork();
    if (process == 0) {
        execl(program, program, static_cast<char*>(nullptr));
        _exit(127);
    }
    while (!screen.showsPicture()) {
        if (Clock::now() - begin > std::chrono::seconds(30) ||
            waitpid(process, nullptr, WNOHANG) == process) {
            std::fprintf(stderr, "%s shows nothing\n", program);
            std::exit(1);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    const std::chrono::duration<double, std::milli> taken = Clock::now() - begin;
    std::this_thread::sleep_for(staying);
    const double memory = residentMiB(process);
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
    return {taken.count(), memory};
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: window_start PROGRAM BARE_PROGRAM\n");
        return 2;
    }
    using namespace std::chrono_literals;
    std::vector<double> own;
    std::vector<double> bare;
    start(argv[1], 0ms); // fills the caches
    start(argv[2], 0ms);
    for (int i = 0; i < rounds; ++i) {
        own.push_back(start(argv[1], 0ms).milliseconds);
        bare.push_back(start(argv[2], 0ms).milliseconds);
    }
    bench::figure("start_ms", bench::median(own), "ms");
    bench::figure("start_bare_ms", bench::median(bare), "ms");
    bench::figure("start_ratio", bench::median(own) / bench::median(bare), "ratio");

    const std::string cache = std::filesystem::temp_directory_path() / "larkvox-cold-XXXXXX";
    std::string folder = cache;
    if (mkdtemp(folder.data()) == nullptr) {
        return 1;
    }
    setenv("MESA_SHADER_CACHE_DIR", folder.c_str(), 1);
    bench::figure("start_cold_ms", start(argv[1], 0ms).milliseconds, "ms");
    unsetenv("MESA_SHADER_CACHE_DIR");
    std::filesystem::remove_all(folder);

    const double ownMemory = start(argv[1], 3s).mebibytes;
    const double bareMemory = start(argv[2], 3s).mebibytes;
    bench::figure("resident_mib", ownMemory, "MiB");
    bench::figure("resident_bare_mib", bareMemory, "MiB");
    bench::figure("resident_ratio", ownMemory / bareMemory, "ratio");
    return 0;
}
