// The window in a host that has no toolkit of its own.

#include "plugin/testing/bare_host.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace larkvox {
namespace {

using testing::BareHost;
using Kind = testing::Event::Kind;
using Which = VocoderParameter;

/// In kB.
long residentMemory() {
    std::ifstream file("/proc/self/statm");
    long whole = 0;
    long resident = 0;
    file >> whole >> resident;
    return resident * 4;
}

std::size_t openFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

std::uint32_t port(Which which) {
    return portOf(indexOf(which));
}

class BareHostTest : public ::testing::Test {
  protected:
    /// Presses, moves and keys come from outside, while the host goes on.
    void act(const std::string& commands) {
        std::thread hand([&commands] {
            EXPECT_EQ(std::system(("xdotool " + commands).c_str()), 0) << commands;
            isDone = true;
        });
        isDone = false;
        host.run(10000, [] { return isDone.load(); });
        hand.join();
        host.run(120);
    }

    static inline std::atomic<bool> isDone{false};
    BareHost host{BUNDLE};
};

// Where things stand on the first page, in points.
constexpr int driveX = 174;
constexpr int dialY = 141;
constexpr int tabY = 22;

TEST_F(BareHostTest, ShowsItsWindowAndWhatTheHostSetsWithoutSendingItBack) {
    const auto slot = host.makePlugin();
    ASSERT_TRUE(host.open(*slot));
    EXPECT_EQ(slot->width, 868);
    EXPECT_EQ(slot->height, 564);
    const auto drive = [&] { return host.look(*slot, driveX - 30, dialY - 30, 60, 60); };
    const auto empty = drive();
    ASSERT_TRUE(host.run(5000, [&] { return drive() != empty; })) << "nothing is painted";
    host.run(300);
    const auto before = drive();
    host.set(*slot, port(Which::drive), 20);
    EXPECT_TRUE(host.run(5000, [&] { return drive() != before; })) << "the dial does not move";
    for (std::uint32_t i = 0; i < firstControl + controlPortCount + 3; ++i) {
        host.set(*slot, i, 1);
    }
    host.run(100);
    EXPECT_TRUE(slot->events.empty()) << "the host hears its own values";
    host.close(*slot);
    host.endPlugin(*slot);
}

TEST_F(BareHostTest, ADragIsOneTouchAndTheHostsEchoDoesNotDisturbIt) {
    if (std::system("command -v xdotool >/dev/null") != 0) {
        GTEST_SKIP() << "NOT TESTED: xdotool is missing";
    }
    const auto slot = host.makePlugin();
    slot->echoes = true;
    ASSERT_TRUE(host.open(*slot));
    host.run(500);
    const auto x = std::to_string(driveX);
    std::string drag = "mousemove " + x + " " + std::to_string(dialY) + " mousedown 1";
    for (int step = 1; step <= 12; ++step) {
        drag += " mousemove " + x + " " + std::to_string(dialY - 5 * step) + " sleep 0.03";
    }
    act(drag + " mouseup 1");

    const auto& events = slot->events;
    ASSERT_GE(events.size(), 4U);
    EXPECT_EQ(events.front().kind, Kind::touch);
    EXPECT_EQ(events.back().kind, Kind::release);
    float last = -1;
    for (const auto& event : events) {
        EXPECT_EQ(event.port, port(Which::drive));
        if (event.kind == Kind::write) {
            EXPECT_GE(event.value, last) << "the echo pulls the dial back";
            last = event.value;
        }
    }
    EXPECT_GT(last, 3);
    EXPECT_EQ(std::ranges::count(events, Kind::touch, &testing::Event::kind), 1);
    EXPECT_EQ(std::ranges::count(events, Kind::release, &testing::Event::kind), 1);

    // A typed value is a touch of its own.
    slot->events.clear();
    host.focus(*slot);
    act("mousemove " + x + " " + std::to_string(dialY + 31) +
        " click 1 sleep 0.2 key ctrl+a type --delay 30 -- -7");
    act("key Return");
    ASSERT_EQ(events.size(), 3U) << "keys do not arrive";
    EXPECT_EQ(events[0].kind, Kind::touch);
    EXPECT_EQ(events[1].value, -7);
    EXPECT_EQ(events[2].kind, Kind::release);
    host.close(*slot);
    host.endPlugin(*slot);
}

TEST_F(BareHostTest, ThePageIsThereAgainWhenTheWindowComesBack) {
    const auto slot = host.makePlugin();
    const auto* const state = static_cast<const WindowState*>(
        testing::Library(BUNDLE "/larkvox.so")
            .symbol<const LV2_Descriptor* (*)(std::uint32_t)>("lv2_descriptor")(0)
            ->extension_data(WindowState::uri));
    ASSERT_TRUE(host.open(*slot));
    host.run(400);
    if (std::system("command -v xdotool >/dev/null") == 0) {
        act("mousemove 560 " + std::to_string(0 + tabY) + " click 1"); // no tab is there
        act("mousemove 226 " + std::to_string(tabY) + " click 1");
        EXPECT_EQ(state->get(slot->plugin, 0), 1);
    } else {
        state->set(slot->plugin, 0, 1);
    }
    EXPECT_TRUE(slot->events.empty()) << "no host can do anything with a page";
    const auto page = host.look(*slot, 0, 60, 868, 400);
    host.close(*slot);
    ASSERT_TRUE(host.open(*slot));
    EXPECT_TRUE(host.run(5000, [&] { return host.look(*slot, 0, 60, 868, 400) == page; }));
    host.close(*slot);
    host.endPlugin(*slot);
}

TEST_F(BareHostTest, OpensAndClosesWithoutEndAndKeepsNothing) {
    constexpr int cycles = 25;
    [[maybe_unused]] long before = 0;
    std::size_t files = 0;
    for (int cycle = 0; cycle < cycles; ++cycle) {
        const auto first = host.makePlugin();
        const auto second = host.makePlugin();
        ASSERT_TRUE(host.open(*first));
        host.run(cycle % 3 == 0 ? 0 : 20);
        ASSERT_TRUE(host.open(*second));
        host.set(*second, port(Which::cutoff), 400 + static_cast<float>(cycle));
        host.run(cycle % 2 == 0 ? 60 : 1);
        const auto order =
            cycle % 2 == 0 ? BareHost::Order::editorFirst : BareHost::Order::windowFirst;
        host.close(*first, order);
        host.run(cycle % 4 == 0 ? 20 : 0);
        host.close(*second, order);
        host.endPlugin(*first);
        host.endPlugin(*second);
        if (cycle == 9) {
            before = residentMemory();
            files = openFiles();
        }
    }
#ifndef __SANITIZE_ADDRESS__ // which keeps what was freed, to catch who uses it
    EXPECT_LE(residentMemory(), before + 1500) << "kB";
#endif
    EXPECT_LE(openFiles(), files);
}

TEST_F(BareHostTest, AMissingBundleCostsTheWindowAndNothingElse) {
    // Only the first window of a process looks, so it is another process.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            BareHost other(BUNDLE);
            const auto slot = other.makePlugin();
            std::exit(other.open(*slot, "/nowhere") ? 1 : 0);
        },
        ::testing::ExitedWithCode(0), "no window: Fernhorn_Fernhorn.bundle");
}

TEST(LibrariesTest, CanBeLetGoAndTakenAgain) {
    for (int cycle = 0; cycle < 5; ++cycle) {
        BareHost host(BUNDLE);
        const auto slot = host.makePlugin();
        ASSERT_TRUE(host.open(*slot));
        host.run(50);
        host.close(*slot);
        host.endPlugin(*slot);
    }
}

} // namespace
} // namespace larkvox
