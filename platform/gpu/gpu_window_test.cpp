#include "platform/gpu/gpu_view.hpp"
#include "platform/gpu/qrhi_private.hpp"
#include "platform/testing/failing_device.hpp"
#include "platform/testing/test_cells.hpp"
#include "platform/testing/window_testing.hpp"

#include <QApplication>
#include <QBackingStore>
#include <QLabel>
#include <QPalette>
#include <QPointer>

#include <gtest/gtest.h>

#include <memory>

namespace platform {
namespace {

using testing::cellCentre;
using testing::CellPainter;
using testing::runFor;
using testing::runUntil;
using testing::screenColor;
using testing::showActive;

const QColor ground(0x15, 0x51, 0x9f);

std::unique_ptr<QWidget> makeWindow(bool hasHost = true) {
    auto window = std::make_unique<QWidget>();
    QPalette palette = window->palette();
    palette.setColor(QPalette::Window, ground);
    window->setPalette(palette);
    window->resize(240, 160);
    if (hasHost) {
        GpuHost::install(*window);
    }
    return window;
}

/// Green in the first row, light of nothing in the second; drawn by the window's device.
struct Picture {
    explicit Picture(QWidget& parent)
        : device(std::make_shared<testing::FailingDevice>(*GpuDevice::systemDefault())),
          view(new GpuView(&parent, device)),
          painter(*view) {
        std::fill_n(painter.cells.begin(), 8, testing::Light{0, 1, 0, 1});
        view->setGeometry(20, 20, 160, 80);
        view->setDelegate(&painter);
        view->show();
    }
    ~Picture() {
        if (view != nullptr) {
            view->setDelegate(nullptr);
        }
    }

    [[nodiscard]] QColor seen(std::size_t cell) const {
        return screenColor(*view, cellCentre(cell, view->size()));
    }
    /// Really on the screen, and the ground where there is no light.
    [[nodiscard]] bool isSeen() const {
        return runUntil([this] { return seen(2) == QColor(Qt::green) && seen(10) == ground; });
    }

    /// The next so many frames fail.
    void fail(FrameResult failure, int times) const {
        device->setOutcome(
            [=](int operation) { return operation < times ? failure : FrameResult::success; });
        view->setNeedsDisplay();
    }

    std::shared_ptr<testing::FailingDevice> device;
    QPointer<GpuView> view;
    CellPainter painter;
};

constexpr int always = 1'000'000;

class GpuWindow : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (qEnvironmentVariable("GPU_TEST_API") == QStringLiteral("Vulkan")) {
            GpuDevice::setSystemApi(GpuApi::vulkan);
        }
    }
    void SetUp() override { ASSERT_NE(GpuDevice::systemDefault(), nullptr); }
};

TEST_F(GpuWindow, ShowsThePictureUnderOtherWidgets) {
    const auto window = makeWindow();
    Picture picture(*window);
    QLabel label(window.get());
    label.setGeometry(100, 30, 20, 20);
    label.setStyleSheet(QStringLiteral("background: #ff0000"));
    showActive(*window);
    EXPECT_TRUE(picture.isSeen());
    EXPECT_TRUE(runUntil([&] { return screenColor(label, {10, 10}) == QColor(Qt::red); }));
    // Nothing shows where the picture ends.
    for (const QPoint edge : {QPoint(100, 99), QPoint(100, 100), QPoint(100, 101), QPoint(19, 90),
                              QPoint(20, 90), QPoint(179, 90), QPoint(180, 90)}) {
        EXPECT_EQ(screenColor(*window, edge), ground) << edge.x() << ", " << edge.y();
    }
    EXPECT_EQ(screenColor(*window, {180, 40}), ground);

    const QImage grabbed = window->grab().toImage();
    EXPECT_EQ(grabbed.pixelColor((QPointF(60, 40) * grabbed.devicePixelRatio()).toPoint()),
              QColor(Qt::green));
}

TEST_F(GpuWindow, DrawsOnlyWhatIsAskedFor) {
    const auto window = makeWindow();
    Picture picture(*window);
    GpuView& view = *picture.view;
    showActive(*window);
    ASSERT_TRUE(picture.isSeen());
    const auto framesWithin = [&](int milliseconds) {
        const long before = view.frameCount();
        runFor(milliseconds);
        return view.frameCount() - before;
    };
    const auto drawsFrames = [&](long count) { // as slow as the machine may be
        const long wanted = view.frameCount() + count;
        return runUntil([&] { return view.frameCount() >= wanted; });
    };
    EXPECT_EQ(framesWithin(200), 0); // starts paused
    view.setNeedsDisplay();
    view.setNeedsDisplay();
    EXPECT_TRUE(drawsFrames(1));
    EXPECT_EQ(framesWithin(200), 0);
    window->update();
    EXPECT_EQ(framesWithin(200), 0);

    view.setPaused(false);
    EXPECT_TRUE(drawsFrames(5));
    for (int i = 0; i < 5; ++i) { // at any point between two frames
        view.setPaused(false);
        runFor(20 + 3 * i);
        view.setPaused(true);
        EXPECT_EQ(framesWithin(100), 0);
    }
    view.setPaused(false);
    runFor(50);
    view.hide();
    EXPECT_EQ(framesWithin(200), 0);
    view.show();
    EXPECT_TRUE(picture.isSeen());
    EXPECT_TRUE(drawsFrames(3));
    view.setPreferredFramesPerSecond(10);
    EXPECT_LE(framesWithin(500), 7);

    view.setPaused(true);
    view.resize(200, 60);
    EXPECT_TRUE(picture.isSeen());
    view.setDelegate(nullptr);
    view.setPaused(false);
    EXPECT_EQ(framesWithin(200), 0);
}

TEST_F(GpuWindow, GoesOnAfterItsSurroundingsChange) {
    for (const bool hasHost : {true, false}) {
        SCOPED_TRACE(hasHost);
        auto window = makeWindow(hasHost);
        auto* const container = new QWidget(window.get());
        container->setGeometry(0, 0, 200, 120);
        showActive(*window);
        runFor(50);

        Picture picture(*container); // joins a window that is shown
        EXPECT_TRUE(picture.isSeen());

        window->close();
        runFor(50);
        window->show();
        EXPECT_TRUE(picture.isSeen());

        // To another window, with its parents and alone, and the one left behind goes.
        auto other = makeWindow(hasHost);
        showActive(*other);
        container->setParent(other.get());
        container->move(20, 10);
        container->show();
        EXPECT_TRUE(picture.isSeen());
        window.reset();
        picture.view->setParent(other.get());
        picture.view->show();
        EXPECT_TRUE(picture.isSeen());
        picture.view->setParent(container);
        picture.view->show();
        EXPECT_TRUE(picture.isSeen());

        // The native window made anew.
        other->setWindowFlag(Qt::FramelessWindowHint);
        other->show();
        EXPECT_TRUE(picture.isSeen());

        delete container; // while it is visible
        EXPECT_EQ(picture.view, nullptr);
        runFor(50);
        EXPECT_EQ(screenColor(*other, {100, 60}), ground);
    }
}

TEST_F(GpuWindow, SurvivesTheLossOfTheDevice) {
    const auto window = makeWindow();
    Picture picture(*window);
    Picture second(*window);
    second.view->setGeometry(20, 110, 160, 40);
    QLabel label(window.get());
    label.setGeometry(190, 20, 20, 20);
    showActive(*window);
    ASSERT_TRUE(picture.isSeen());
    ASSERT_TRUE(second.isSeen());
    for (const FrameResult failure : {FrameResult::error, FrameResult::deviceLost}) {
        for (const int times : {1, 2, 3}) {
            SCOPED_TRACE(times);
            const long before = picture.view->frameCount();
            picture.fail(failure, times);
            EXPECT_TRUE(runUntil([&] { return picture.view->frameCount() > before; }));
            EXPECT_TRUE(picture.isSeen());
            EXPECT_TRUE(second.isSeen());
            EXPECT_FALSE(picture.view->isEmpty());
        }
    }
    picture.view->setPaused(false);
    second.view->setPaused(false);
    picture.fail(FrameResult::deviceLost, always);
    EXPECT_TRUE(runUntil([&] { return picture.view->isEmpty(); }));
    EXPECT_TRUE(runUntil([&] { return screenColor(*window, {100, 40}) == ground; }));
    EXPECT_TRUE(second.isSeen());
    label.setStyleSheet(QStringLiteral("background: #ff0000"));
    EXPECT_TRUE(runUntil([&] { return screenColor(label, {10, 10}) == QColor(Qt::red); }));

    // Whoever shows it again gets the ground, and another window is another try.
    for (QWidget* const shown : {static_cast<QWidget*>(picture.view), window.get()}) {
        shown->hide();
        shown->show();
        runFor(50);
        EXPECT_EQ(screenColor(*window, {100, 40}), ground);
        EXPECT_TRUE(second.isSeen());
    }
    const auto other = makeWindow();
    showActive(*other);
    picture.view->setParent(other.get());
    picture.view->show();
    EXPECT_TRUE(runUntil([&] { return picture.view->isEmpty(); }));
    EXPECT_TRUE(runUntil([&] { return screenColor(*other, {100, 40}) == ground; }));
    picture.device->setOutcome({});
    picture.view->setParent(window.get());
    picture.view->show();
    other->hide();
    EXPECT_TRUE(picture.isSeen());
}

// While frames fail the view's own visibility is its owner's.
TEST_F(GpuWindow, LeavesItsVisibilityAlone) {
    const auto window = makeWindow();
    Picture picture(*window);
    GpuView& view = *picture.view;
    showActive(*window);
    ASSERT_TRUE(picture.isSeen());
    picture.fail(FrameResult::error, 3);
    view.resize(170, 90); // no picture of that size
    EXPECT_TRUE(view.isVisible());
    runFor(50);
    EXPECT_EQ(screenColor(*window, {100, 40}), ground);
    view.hide(); // amid the tries
    runFor(600);
    EXPECT_FALSE(view.isVisible());
    EXPECT_EQ(screenColor(*window, {100, 40}), ground);
    picture.device->setOutcome({});
    view.show();
    EXPECT_TRUE(picture.isSeen());
}

// What the toolkit does when it meets a lost device while it composites.
TEST_F(GpuWindow, GoesOnAfterCompositingHasLostTheDevice) {
    const auto window = makeWindow();
    Picture picture(*window);
    Picture second(*window);
    second.view->setGeometry(20, 110, 160, 40);
    showActive(*window);
    ASSERT_TRUE(picture.isSeen());
    const auto tell = [&](QEvent::Type type) {
        for (GpuView* const view : {picture.view.data(), second.view.data()}) {
            QEvent event(type);
            QCoreApplication::sendEvent(view, &event);
        }
    };
    tell(QEvent::WindowAboutToChangeInternal);
    window->backingStore()->handle()->graphicsDeviceReportedLost();
    tell(QEvent::WindowChangeInternal);
    std::fill_n(picture.painter.cells.begin(), 8, testing::Light{0, 0, 1, 1});
    picture.view->setNeedsDisplay();
    EXPECT_TRUE(runUntil([&] { return picture.seen(2) == QColor(Qt::blue); }));
    EXPECT_TRUE(second.isSeen());
}

TEST_F(GpuWindow, IsEmptyWhenTheDeviceRefusesAResource) {
    class Refused final : public GpuView::Resources {
      public:
        bool prepare(const GpuContext& /*context*/) override { return false; }
        void release() override {}
    } refused;
    const auto window = makeWindow();
    Picture picture(*window);
    EXPECT_TRUE(picture.view->addResources(refused)); // the window has no device yet
    picture.view->setPaused(false);
    showActive(*window);
    EXPECT_TRUE(runUntil([&] { return picture.view->isEmpty(); }));
    EXPECT_TRUE(runUntil([&] { return screenColor(*window, {100, 40}) == ground; }));
    EXPECT_EQ(picture.view->frameCount(), 0);
    picture.view->removeResources(refused);
}

} // namespace
} // namespace platform
