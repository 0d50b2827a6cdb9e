#include "platform/testing/window_testing.hpp"
#include "platform/ui/main_queue_driver.hpp"

#include <QApplication>
#include <QEventLoop>
#include <QShortcut>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

namespace platform {
namespace {

using testing::runUntil;
using testing::showActive;

/// Counts paintings and notes what the queue has done when input arrives.
class Witness final : public QWidget {
  public:
    int paintings = 0;
    std::function<void()> onInput;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override { ++paintings; }
    void mousePressEvent(QMouseEvent* /*event*/) override { onInput(); }
    void keyPressEvent(QKeyEvent* /*event*/) override { onInput(); }
};

TEST(MainQueueDriver, RunsWhatWasPostedBeforeInput) {
    core::MainQueue queue;
    const MainQueueDriver driver(queue);
    Witness witness;
    int done = 0;
    int doneAtInput = 0;
    witness.onInput = [&] { doneAtInput = done; };
    QShortcut shortcut(Qt::CTRL | Qt::Key_T, &witness);
    QObject::connect(&shortcut, &QShortcut::activated, &witness, [&] { witness.onInput(); });
    showActive(witness);

    int posted = 0;
    for (const auto& input : std::initializer_list<std::function<void()>>{
             [&] {
                 QTest::mousePress(witness.windowHandle(), Qt::LeftButton, {}, {5, 5});
             },
             [&] { QTest::keyClick(witness.windowHandle(), Qt::Key_A); },
             [&] { QTest::keyClick(witness.windowHandle(), Qt::Key_T, Qt::ControlModifier); }}) {
        ++posted;
        std::thread([&] { queue.post([&] { ++done; }); }).join();
        // The queue's descriptor is readable, but the event is queued before it.
        input();
        EXPECT_EQ(doneAtInput, posted);
    }
}

TEST(MainQueueDriver, LeavesRoomForPaintingInAFlood) {
    core::MainQueue queue;
    const MainQueueDriver driver(queue);
    Witness witness;
    showActive(witness);
    bool isFlooding = true;
    long tasks = 0;
    std::function<void()> again = [&] {
        ++tasks;
        if (isFlooding) {
            queue.post(std::ref(again)); // the queue is never empty
        }
    };
    queue.post(std::ref(again));
    const int before = witness.paintings;
    QTimer painter;
    QObject::connect(&painter, &QTimer::timeout, &witness, [&] { witness.update(); });
    painter.start(10);
    EXPECT_TRUE(runUntil([&] { return witness.paintings > before + 10; }));
    EXPECT_GT(tasks, 10'000);
    isFlooding = false;
    const long stopped = tasks + 1;
    EXPECT_TRUE(runUntil([&] { return tasks == stopped; }));
}

TEST(MainQueueDriver, GoesOnWhileATaskRunsAnEventLoop) {
    core::MainQueue queue;
    const MainQueueDriver driver(queue);
    for (int depth = 0; depth < 2; ++depth) { // twice, since the first must leave no traces
        QEventLoop dialog;
        bool hasReturned = false;
        bool isLate = false;
        std::thread producer;
        queue.post([&] {
            producer = std::thread([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
                queue.post([] {});
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
                queue.post([&] { dialog.quit(); });
            });
            QTimer::singleShot(3000, &dialog, [&] {
                isLate = true;
                dialog.quit();
            });
            dialog.exec();
            hasReturned = true;
        });
        bool isBehind = false;
        queue.post([&] { isBehind = true; });
        EXPECT_TRUE(runUntil([&] { return hasReturned; }));
        EXPECT_FALSE(isLate);
        EXPECT_TRUE(isBehind);
        producer.join();
    }
}

// An editor closes right behind an automation that was shown, and opens again.
TEST(MainQueueDriver, DriversMayComeAndGoAndBeSeveral) {
    core::MainQueue queue;
    int done = 0;
    const auto isRun = [&] {
        const int before = done;
        std::thread([&] { queue.post([&] { ++done; }); }).join();
        return runUntil([&] { return done == before + 1; });
    };
    for (int reopened = 0; reopened < 20; ++reopened) {
        const MainQueueDriver driver(queue);
        ASSERT_TRUE(isRun()) << reopened;
    }
    for (const bool newerGoesFirst : {true, false}) {
        auto older = std::make_unique<MainQueueDriver>(queue);
        auto newer = std::make_unique<MainQueueDriver>(queue);
        EXPECT_TRUE(isRun());
        (newerGoesFirst ? newer : older).reset();
        EXPECT_TRUE(isRun()) << "the other one is left";
        EXPECT_TRUE(isRun());
    }
}

} // namespace
} // namespace platform
