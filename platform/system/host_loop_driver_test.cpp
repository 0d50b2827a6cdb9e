#include "platform/system/host_loop_driver.hpp"

#include <gtest/gtest.h>
#include <poll.h>

#include <functional>
#include <thread>

namespace platform {
namespace {

int waitFor(const HostLoopDriver& driver, int milliseconds) {
    pollfd watched{driver.descriptor(), POLLIN, 0};
    return poll(&watched, 1, milliseconds);
}

// With and without timers in the host, and where its editor was opened before.
TEST(HostLoopDriver, RunsWhatIsPostedInAHostsLoop) {
    core::MainQueue queue;
    for (const bool hasTimers : {true, false, true}) {
        HostLoopDriver driver(queue);
        constexpr int posts = 20'000;
        int ran = 0;
        std::thread audio([&] {
            for (int i = 0; i < posts; ++i) {
                queue.post([&] { ++ran; });
                if (i % 100 == 0) {
                    std::this_thread::yield();
                }
            }
        });
        for (int idle = 0; ran < posts && idle < 500; ++idle) {
            const auto timeout = hasTimers ? driver.nextTimeout() : std::nullopt;
            // Long enough to be seen if a wake-up is missing.
            idle =
                waitFor(driver, timeout ? static_cast<int>(timeout->count()) : 1000) > 0 || timeout
                    ? 0
                    : 500;
            driver.onReadable();
        }
        audio.join();
        driver.onReadable();
        EXPECT_EQ(ran, posts);
    }
}

TEST(HostLoopDriver, LeavesTheHostItsTurnInAFlood) {
    core::MainQueue queue;
    HostLoopDriver driver(queue);
    long tasks = 0;
    std::function<void()> again = [&] {
        if (++tasks < 100'000) {
            queue.post(std::ref(again));
        }
    };
    queue.post(std::ref(again));
    int turns = 0;
    while (waitFor(driver, 0) > 0) {
        driver.onReadable();
        ++turns;
    }
    EXPECT_EQ(tasks, 100'000);
    EXPECT_GT(turns, 10);
}

} // namespace
} // namespace platform
