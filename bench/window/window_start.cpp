// window_start PROGRAM BARE_PROGRAM [QUICK_PROGRAM]: from exec to the first text and to the first
// picture on the screen, and the resident memory after it, of the program, of a bare window and of
// the same window in Qt Quick, in turn.

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
        return count(15, 70, 110, 160, [](int weakest, int strongest) {
                   return strongest > 90 && strongest - weakest > 40;
               }) > 20;
    }

    /// Whether there is light text in the lower half.
    bool showsText() {
        return count(40, 330, 320, 120, [](int weakest, int strongest) {
                   return weakest > 140 && strongest < 250;
               }) > 20;
    }

  private:
    /// How many pixels of a rectangle are such, by their weakest and their strongest component.
    int count(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height,
              bool (*isSuch)(int weakest, int strongest)) {
        xcb_get_image_reply_t* const reply = xcb_get_image_reply(
            connection_,
            xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_, x, y, width, height, ~0U),
            nullptr);
        if (reply == nullptr) {
            return 0;
        }
        int found = 0;
        const std::span<const std::uint8_t> bytes(
            xcb_get_image_data(reply), static_cast<std::size_t>(xcb_get_image_data_length(reply)));
        for (std::size_t i = 0; i + 3 < bytes.size(); i += 4) {
            found += isSuch(std::min({bytes[i], bytes[i + 1], bytes[i + 2]}),
                            std::max({bytes[i], bytes[i + 1], bytes[i + 2]}))
                         ? 1
                         : 0;
        }
        std::free(reply);
        return found;
    }

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
    double textMilliseconds; // 0 without any text before the picture is there
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
    using Milliseconds = std::chrono::duration<double, std::milli>;
    double text = 0;
    while (!screen.showsPicture()) {
        if (text == 0 && screen.showsText()) {
            text = Milliseconds(Clock::now() - begin).count();
        }
        if (Clock::now() - begin > std::chrono::seconds(30) ||
            waitpid(process, nullptr, WNOHANG) == process) {
            std::fprintf(stderr, "%s shows nothing\n", program);
            std::exit(1);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    const double taken = Milliseconds(Clock::now() - begin).count();
    std::this_thread::sleep_for(staying);
    const double memory = residentMiB(process);
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
    return {text > 0 ? text : taken, taken, memory};
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3 && argc != 4) {
        std::fprintf(stderr, "usage: window_start PROGRAM BARE_PROGRAM [QUICK_PROGRAM]\n");
        return 2;
    }
    using namespace std::chrono_literals;
    std::vector<double> own;
    std::vector<double> visible;
    std::vector<double> bare;
    std::vector<double> quick;
    for (int i = 1; i < argc; ++i) {
        start(argv[i], 0ms); // fills the caches
    }
    for (int i = 0; i < rounds; ++i) {
        const Run run = start(argv[1], 0ms);
        own.push_back(run.milliseconds);
        visible.push_back(run.textMilliseconds);
        bare.push_back(start(argv[2], 0ms).milliseconds);
        if (argc > 3) {
            quick.push_back(start(argv[3], 0ms).milliseconds);
        }
    }
    bench::figure("window_visible_ms", bench::median(visible), "ms");
    bench::figure("start_ms", bench::median(own), "ms");
    bench::figure("start_bare_ms", bench::median(bare), "ms");
    bench::figure("start_ratio", bench::median(own) / bench::median(bare), "ratio");
    if (!quick.empty()) {
        bench::figure("start_quick_ms", bench::median(quick), "ms");
        bench::figure("start_vs_quick", bench::median(own) / bench::median(quick), "ratio");
    }

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
