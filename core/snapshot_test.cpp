#include "core/snapshot.hpp"

#include <gtest/gtest.h>

#include <array>

namespace platform {
namespace {

/// Counts how many copies of it live, and knows when it is read after its end.
struct Tracked {
    static inline std::atomic<int> living{0};
    int number = 0;
    int twin = 0;
    Tracked() { ++living; }
    Tracked(const Tracked& other) : number(other.number), twin(other.twin) { ++living; }
    Tracked& operator=(const Tracked&) = delete;
    ~Tracked() {
        number = -1;
        --living;
    }
};

TEST(Snapshot, AReaderKeepsWhatItReadsWhileItIsReplacedFromWithin) {
    {
        Snapshot<Tracked> snapshot;
        EXPECT_FALSE(snapshot.read());
        snapshot.update([](Tracked& value) { value.number = 1; });
        for (int i = 2; i < 100; ++i) {
            const auto reading = snapshot.read();
            snapshot.update([&](Tracked& value) { value.number = i; });
            EXPECT_EQ(reading->number, i - 1);
            EXPECT_EQ(snapshot.read()->number, i);
            EXPECT_LE(Tracked::living, 4) << "what is not read any more is reclaimed";
        }
        snapshot.update([](Tracked&) {});
        EXPECT_EQ(Tracked::living, 1) << "an update outside of reads leaves nothing behind";
    }
    EXPECT_EQ(Tracked::living, 0);
}

// Writers and readers at once, and writers within reads: every reader sees whole values, and an
// update that returns has ended the reading of the value before.
TEST(Snapshot, HoldsUnderReadersAndWritersOnManyThreads) {
    Snapshot<Tracked> snapshot;
    snapshot.update([](Tracked&) {});
    std::atomic<bool> isOver{false};
    std::atomic<int> torn{0};
    std::array<std::thread, 2> readers;
    for (auto& reader : readers) {
        reader = std::thread([&] {
            int reads = 0;
            while (!isOver) {
                const auto reading = snapshot.read();
                torn += reading->number != reading->twin ? 1 : 0;
                if (++reads % 64 == 0) {
                    snapshot.update([](Tracked& value) { value.twin = ++value.number; });
                }
            }
        });
    }
    for (int i = 0; i < 2000; ++i) {
        snapshot.update([](Tracked& value) { value.twin = ++value.number; });
    }
    isOver = true;
    for (auto& reader : readers) {
        reader.join();
    }
    EXPECT_EQ(torn, 0);
    snapshot.update([](Tracked&) {});
    EXPECT_EQ(Tracked::living, 1);
}

} // namespace
} // namespace platform
