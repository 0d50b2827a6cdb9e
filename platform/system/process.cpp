#include "platform/system/process.hpp"

#include <dlfcn.h>
#include <spawn.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string_view>

namespace platform {
namespace {

// NOLINTBEGIN(concurrency-mt-unsafe): nobody changes the environment meanwhile
bool isSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}
// NOLINTEND(concurrency-mt-unsafe)

/// A function of a library that is there for who has such a screen, and else is no loss.
template<class Function>
Function* find(void* library, const char* name) {
    return library == nullptr ? nullptr : reinterpret_cast<Function*>(dlsym(library, name));
}

bool canReachX() {
    void* const library = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    auto* const connect = find<void*(const char*, int*)>(library, "xcb_connect");
    auto* const hasError = find<int(void*)>(library, "xcb_connection_has_error");
    auto* const disconnect = find<void(void*)>(library, "xcb_disconnect");
    if (connect == nullptr || hasError == nullptr || disconnect == nullptr) {
        return true; // nobody knows
    }
    void* const connection = connect(nullptr, nullptr);
    const bool isReached = hasError(connection) == 0;
    disconnect(connection);
    return isReached;
}

bool canReachWayland() {
    void* const library = dlopen("libwayland-client.so.0", RTLD_NOW | RTLD_LOCAL);
    auto* const connect = find<void*(const char*)>(library, "wl_display_connect");
    auto* const disconnect = find<void(void*)>(library, "wl_display_disconnect");
    if (connect == nullptr || disconnect == nullptr) {
        return true;
    }
    void* const connection = connect(nullptr);
    if (connection != nullptr) {
        disconnect(connection);
    }
    return connection != nullptr;
}

} // namespace

std::string_view thisPlatform() {
    return LARKVOX_PLATFORM;
}

std::filesystem::path programFile() {
    return "/proc/self/exe";
}

std::vector<std::string> programArguments() {
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> arguments;
    for (std::string argument; std::getline(file, argument, '\0');) {
        arguments.push_back(argument);
    }
    if (!arguments.empty()) {
        arguments.erase(arguments.begin());
    }
    return arguments;
}

bool startProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
    std::vector<std::string> words{program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    posix_spawnattr_t attributes;
    if (posix_spawnattr_init(&attributes) != 0) {
        return false;
    }
    // What this program has done to its signals is not for the other.
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    pid_t process = -1;
    const bool isStarted =
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK |
                                                  POSIX_SPAWN_SETSIGDEF) == 0 &&
        posix_spawnattr_setsigmask(&attributes, &none) == 0 &&
        posix_spawnattr_setsigdefault(&attributes, &all) == 0 &&
        posix_spawn(&process, pointers.front(), nullptr, &attributes, pointers.data(), environ) ==
            0;
    posix_spawnattr_destroy(&attributes);
    return isStarted;
}

bool canShowWindows() {
    if (isSet("QT_QPA_PLATFORM")) {
        return true; // whatever that is, somebody has thought of it
    }
    return (isSet("WAYLAND_DISPLAY") && canReachWayland()) || (isSet("DISPLAY") && canReachX());
}

} // namespace platform
