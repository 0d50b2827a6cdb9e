#include "platform/system/sole_start.hpp"

#ifdef __linux__

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <thread>

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds patience{3};
constexpr std::chrono::milliseconds pause{10};
constexpr char heard = 1;

// NOLINTBEGIN(concurrency-mt-unsafe): nobody changes the environment meanwhile
std::string_view variable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}
// NOLINTEND(concurrency-mt-unsafe)

/// Which desktop windows go to; empty where they go to none.
std::string desktop() {
    for (const std::string_view unseen : {"offscreen", "minimal", "vnc"}) {
        if (variable("QT_QPA_PLATFORM").starts_with(unseen)) {
            return {};
        }
    }
    const std::string_view screen =
        variable("DISPLAY").empty() ? variable("WAYLAND_DISPLAY") : variable("DISPLAY");
    return screen.empty() ? std::string()
                          : std::string(variable("XDG_RUNTIME_DIR")).append("/").append(screen);
}

/// FNV-1a: the same in every version of the program.
std::uint64_t digest(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : text) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    }
    return hash;
}

struct Address {
    sockaddr_un address{};
    socklen_t size = 0;

    /// In the namespace that has no files: nothing is left behind.
    Address(const std::string& name, const std::string& screen) {
        const std::string path =
            name + "-" + std::to_string(getuid()) + "-" + std::to_string(digest(screen));
        address.sun_family = AF_UNIX;
        const std::size_t length = std::min(path.size(), sizeof address.sun_path - 1);
        std::memcpy(address.sun_path + 1, path.data(), length);
        size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
    }
    [[nodiscard]] const sockaddr* get() const {
        return reinterpret_cast<const sockaddr*>(&address);
    }
};

Descriptor makeSocket(int flags = 0) {
    return Descriptor(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | flags, 0));
}

/// Nobody else may hold the name, or call.
bool isOfThisUser(int connection) {
    ucred who{};
    socklen_t size = sizeof who;
    return getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &who, &size) == 0 && who.uid == getuid();
}

enum class Call { answered, gone, refused };

Call call(const Address& address, const std::string& message) {
    const Descriptor connection = makeSocket();
    const timeval limit{.tv_sec = patience.count(), .tv_usec = 0};
    setsockopt(connection.get(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    setsockopt(connection.get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    if (connect(connection.get(), address.get(), address.size) != 0) {
        return errno == ECONNREFUSED ? Call::gone : Call::refused;
    }
    if (!isOfThisUser(connection.get())) {
        return Call::refused;
    }
    if (send(connection.get(), message.data(), message.size(), MSG_NOSIGNAL) < 0) {
        return Call::gone;
    }
    char reply = 0;
    const ssize_t size = recv(connection.get(), &reply, 1, 0);
    if (size == 1 && reply == heard) {
        return Call::answered;
    }
    return size < 0 && (errno == EAGAIN || errno == EWOULDBLOCK) ? Call::refused : Call::gone;
}

} // namespace

SoleStart::SoleStart(const std::string& name, const std::string& message) {
    const std::string screen = desktop();
    if (screen.empty()) {
        return;
    }
    const Address address(name, screen);
    for (const auto end = Clock::now() + patience; Clock::now() < end;) {
        Descriptor socket = makeSocket(SOCK_NONBLOCK);
        if (bind(socket.get(), address.get(), address.size) == 0 && listen(socket.get(), 8) == 0) {
            listener_ = std::move(socket);
            return;
        }
        switch (call(address, message)) {
        case Call::answered:
            isFirst_ = false;
            return;
        case Call::gone: // it is ending, or is just taking the name
            std::this_thread::sleep_for(pause);
            break;
        case Call::refused:
            return;
        }
    }
}

std::optional<std::string> SoleStart::answer() {
    const Descriptor connection(accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC));
    if (!connection || !isOfThisUser(connection.get())) {
        return std::nullopt;
    }
    std::array<char, 1024> message{};
    pollfd ready{.fd = connection.get(), .events = POLLIN, .revents = 0};
    const ssize_t size =
        poll(&ready, 1, 100) == 1 ? recv(connection.get(), message.data(), message.size(), 0) : -1;
    if (size < 0 || send(connection.get(), &heard, 1, MSG_NOSIGNAL) != 1) {
        return std::nullopt;
    }
    return std::string(message.data(), static_cast<std::size_t>(size));
}

} // namespace platform

#else

namespace platform {

SoleStart::SoleStart(const std::string& /*name*/, const std::string& /*message*/) {}

std::optional<std::string> SoleStart::answer() {
    return std::nullopt;
}

} // namespace platform

#endif
