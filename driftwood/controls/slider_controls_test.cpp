#include "driftwood/controls/styled_slider.hpp"
#include "driftwood/controls/tracking_slider.hpp"
#include "platform/controls/cell_painting.hpp"
#include "platform/testing/window_testing.hpp"

#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <random>

namespace driftwood {
namespace {

using platform::testing::showActive;

/// A wheel's turn in eighths of a degree.
void turn(QWidget& widget, QPoint angle, bool isInverted = false) {
    QWheelEvent event(QPointF(5, 5), widget.mapToGlobal(QPointF(5, 5)), {}, angle, Qt::NoButton, {},
                      Qt::NoScrollPhase, isInverted);
    QCoreApplication::sendEvent(&widget, &event);
}

/// A slider of 0 to 100 at 50, which writes down what it tells.
template<class Slider>
class Told : public Slider {
  public:
    using Slider::Slider;
    std::shared_ptr<std::string> log = std::make_shared<std::string>();

    void listen() {
        const auto write = [to = log](char what) {
            return [to, what](double value) {
                *to += what + std::to_string(std::lround(value)) + ' ';
            };
        };
        this->onSlideStarted = write('s');
        if constexpr (requires { this->onSlideOngoing; }) {
            this->onSlideOngoing = write('o');
        }
        this->onSlideComplete = write('c');
        this->setRange(0, 100);
        this->setDoubleValue(50);
    }
    std::string told() { return std::exchange(*log, {}); }
};

class StyledSliders : public ::testing::Test {
  protected:
    StyledSliders() {
        window.resize(300, 100);
        slider = new Told<StyledScrollableSlider>(SliderKind::horizontal, &window);
        slider->setGeometry(0, 0, 216, 22); // 200 points for 100 values
        slider->listen();
        showActive(window);
    }
    static QPoint at(int value) { return {8 + 2 * value, 11}; }

    QWidget window;
    QPointer<Told<StyledScrollableSlider>> slider;
};

TEST_F(StyledSliders, TellOfADragAndOfNothingElse) {
    QTest::mousePress(slider, Qt::LeftButton, {}, at(50));
    EXPECT_TRUE(slider->isHighlighted());
    QTest::mouseMove(slider, at(60));
    QTest::mouseMove(slider, at(60) + QPoint(0, 70)); // the same value
    QTest::mouseMove(slider, at(400));
    QTest::mouseRelease(slider, Qt::LeftButton, {}, at(400));
    EXPECT_EQ(slider->told(), "s50 o60 o100 c100 ");
    EXPECT_FALSE(slider->isHighlighted());
    QTest::mouseClick(slider, Qt::LeftButton, {}, at(25));
    EXPECT_EQ(slider->told(), "s25 c25 ") << "beside the knob it jumps";
    slider->setContinuous(false);
    QTest::mousePress(slider, Qt::LeftButton, {}, at(75));
    QTest::mouseMove(slider, at(80));
    QTest::mouseRelease(slider, Qt::LeftButton, {}, at(80));
    EXPECT_EQ(slider->told(), "c80 ");

    int sent = 0;
    platform::Control target;
    slider->setAction([&](platform::ActionTarget&, platform::Control&) { ++sent; }, target);
    const std::pair<Qt::Key, double> keys[] = {
        {Qt::Key_Right, 81},  {Qt::Key_Up, 82},       {Qt::Key_Left, 81}, {Qt::Key_Down, 80},
        {Qt::Key_PageUp, 90}, {Qt::Key_PageDown, 80}, {Qt::Key_End, 100}, {Qt::Key_Home, 0}};
    for (const auto& [key, value] : keys) {
        QTest::keyClick(slider, key);
        EXPECT_DOUBLE_EQ(slider->doubleValue(), value) << key;
    }
    EXPECT_EQ(sent, 8);
    slider->setLayoutDirection(Qt::RightToLeft);
    slider->setKeyStep(5);
    QTest::keyClick(slider, Qt::Key_Left);
    EXPECT_EQ(slider->doubleValue(), 5);
    turn(*slider, {0, 120});
    EXPECT_EQ(slider->doubleValue(), 7.5) << "a notch is a fortieth";
    turn(*slider, {0, 120}, true);
    EXPECT_EQ(sent, 11);
    slider->setEnabled(false);
    turn(*slider, {0, 120});
    QTest::keyClick(slider, Qt::Key_End);
    EXPECT_EQ(slider->doubleValue(), 5);
    EXPECT_EQ(slider->told(), "");
}

TEST_F(StyledSliders, EndADragOnceHoweverItIsTakenAway) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"disabled", [&] { slider->setEnabled(false); }},
        {"hidden", [&] { slider->hide(); }},
        {"window hidden", [&] { window.hide(); }},
        {"re-parented", [&] { slider->setParent(nullptr); }},
        {"released unheard",
         [&] {
             QMouseEvent move(QEvent::MouseMove, QPointF(9, 9), QPointF(9, 9), Qt::NoButton,
                              Qt::NoButton, {});
             QCoreApplication::sendEvent(slider, &move);
         }},
        {"destroyed", [&] { delete slider; }}, // the last one
    };
    for (const auto& [what, take] : ways) {
        const auto log = slider->log;
        QTest::mousePress(slider, Qt::LeftButton, {}, at(50));
        take();
        if (slider != nullptr) {
            QTest::mouseMove(slider, at(10));
            QTest::mouseRelease(slider, Qt::LeftButton, {}, at(10));
            slider->setParent(&window);
            slider->setEnabled(true);
            slider->show();
            showActive(window);
        }
        EXPECT_EQ(*log, "s50 c50 ") << what;
        log->clear();
    }
    EXPECT_TRUE(slider.isNull());
}

TEST_F(StyledSliders, KeepTheirValueInARangeThatChangesInADrag) {
    QTest::mousePress(slider, Qt::LeftButton, {}, at(50));
    slider->setRange(0, 10);
    EXPECT_EQ(slider->doubleValue(), 10);
    QTest::mouseMove(slider, at(50)); // the knob was held at the middle, and jumped to the end
    QTest::mouseMove(slider, at(60));
    QTest::mouseRelease(slider, Qt::LeftButton, {}, at(60));
    EXPECT_EQ(slider->told(), "s50 o5 o6 c6 ");
    slider->setDoubleValue(std::nan(""));
    EXPECT_DOUBLE_EQ(slider->doubleValue(), 6);
    EXPECT_DEATH(slider->setRange(1, 0), "needs a range");
    auto* const dying = slider.data();
    slider->onSlideStarted = [dying](double) { delete dying; };
    QTest::mousePress(slider, Qt::LeftButton, {}, at(50));
    EXPECT_TRUE(slider.isNull());
}

TEST(SliderCells, AreDrawnFromTheirStyle) {
    EXPECT_EQ(toQColor(StyledSliderCell::style().backgroundColor()).alpha(), 0);
    StyledSlider slider;
    EXPECT_EQ(slider.intrinsicContentSize(), (core::Size{100, 22}));
    slider.setFixedWidth(4);
    EXPECT_EQ(slider.intrinsicContentSize(), (core::Size{12, 16})) << "as its images";
    // The knob at the place that the geometry says, in every kind.
    for (const SliderKind kind :
         {SliderKind::horizontal, SliderKind::vertical, SliderKind::circular}) {
        StyledSliderCell cell;
        cell.setSliderType(kind);
        cell.setPlace(0.75);
        const core::Rect bounds{{0, 0}, {100, 100}};
        QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        cell.draw(bounds, {painter, Qt::white});
        const core::Point knob = core::midPoint(cell.knobRect(bounds, false));
        const QColor there = image.pixelColor(static_cast<int>(knob.x), static_cast<int>(knob.y));
        EXPECT_GT(there.lightness(), 150) << "the bright knob";
        EXPECT_EQ(there.alpha(), 255);
    }
}

class TrackingSliders : public ::testing::Test {
  protected:
    TrackingSliders() {
        window.resize(200, 200);
        slider = new Told<TrackingSlider>(nullptr, &window);
        slider->setGeometry(50, 50, 40, 40);
        slider->listen();
        slider->setIncrementBy(1);
        clicks = slider->clicked().subscribe([this](const Click&) { ++clicked; });
        slider->setAction([this](platform::ActionTarget&, platform::Control&) { ++sent; }, target);
        showActive(window);
    }
    /// The pointer somewhere, some milliseconds after it was elsewhere.
    void send(QEvent::Type type, QPointF to, int after) {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, to, to, isMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        now += static_cast<quint64>(after);
        event.setTimestamp(now);
        QCoreApplication::sendEvent(slider, &event);
    }

    QWidget window;
    QPointer<Told<TrackingSlider>> slider;
    platform::Control target;
    core::Subscription clicks;
    int clicked = 0, sent = 0;
    quint64 now = 1000;
};

TEST_F(TrackingSliders, GoOneIncrementWithEachFastMove) {
    struct Case {
        const char* what;
        MovementDirection direction;
        bool isContinuous;
        QPointF by; // each of ten moves
        int time;   // between them, ms
        const char* told;
        int sent;
    };
    const Case cases[] = {
        {"up", MovementDirection::vertical, false, {0, -8}, 10, "s50 c60 ", 1},
        {"down, telling", MovementDirection::vertical, true, {0, 8}, 10, "s50 c40 ", 11},
        {"aside", MovementDirection::vertical, true, {8, 0}, 10, "s50 c50 ", 1},
        {"to the right", MovementDirection::horizontal, false, {8, 0}, 10, "s50 c60 ", 1},
        {"slowly", MovementDirection::vertical, true, {0, -4}, 2000, "s50 c50 ", 1},
    };
    for (const Case& c : cases) {
        slider->setDoubleValue(50);
        slider->setMovementDirection(c.direction);
        slider->setContinuous(c.isContinuous);
        sent = clicked = 0;
        QPointF point(20, 20);
        send(QEvent::MouseButtonPress, point, 0);
        EXPECT_EQ(slider->alphaValue(), 0.5);
        for (int i = 0; i < 11; ++i) { // the first one begins it
            send(QEvent::MouseMove, point += c.by, c.time);
        }
        send(QEvent::MouseButtonRelease, point, c.time);
        EXPECT_EQ(slider->told(), c.told) << c.what;
        EXPECT_EQ(sent, c.sent) << c.what;
        EXPECT_EQ(clicked, 1) << c.what;
        EXPECT_EQ(slider->valueWasEdited(), slider->doubleValue() != 50) << c.what;
        EXPECT_EQ(slider->alphaValue(), 1);
    }
}

TEST_F(TrackingSliders, ForgetADragThatIsTakenAwayAndTellOfAClickOnce) {
    QTest::mouseClick(slider, Qt::LeftButton);
    EXPECT_EQ(clicked, 1);
    send(QEvent::MouseButtonPress, {20, 20}, 0);
    send(QEvent::MouseMove, {20, 10}, 10);
    send(QEvent::MouseMove, {20, 0}, 10);
    EXPECT_TRUE(slider->valueWasEdited());
    slider->setEnabled(false);
    EXPECT_EQ(slider->told(), "s50 ") << "cancelled: no end is told";
    EXPECT_FALSE(slider->valueWasEdited());
    EXPECT_EQ(clicked, 3);
    EXPECT_EQ(slider->alphaValue(), 1);
    send(QEvent::MouseButtonRelease, {20, 0}, 10);
    turn(*slider, {0, 120});
    EXPECT_EQ(slider->doubleValue(), 51);
    EXPECT_EQ(sent, 0);
}

TEST_F(TrackingSliders, FollowWheelAndKeys) {
    struct Turn {
        MovementDirection direction;
        QPoint angle;
        bool isInverted;
        double expected;
    };
    const Turn turns[] = {
        {MovementDirection::vertical, {0, 120}, false, 51},
        {MovementDirection::vertical, {0, 8}, true, 49},
        {MovementDirection::vertical, {120, 0}, false, 50},
        {MovementDirection::horizontal, {120, 0}, false, 51},
        {MovementDirection::horizontal, {120, 0}, true, 51}, // as the system says
    };
    for (const Turn& t : turns) {
        slider->setDoubleValue(50);
        slider->setMovementDirection(t.direction);
        turn(*slider, t.angle, t.isInverted);
        EXPECT_EQ(slider->doubleValue(), t.expected);
    }
    EXPECT_EQ(sent, 4);
    std::vector<double> values;
    const auto reading =
        slider->doubleValuePublisher().subscribe([&](double value) { values.push_back(value); });
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Down, Qt::Key_End,
                              Qt::Key_Right /* nothing new */}) {
        QTest::keyClick(slider, key);
    }
    EXPECT_EQ(values, (std::vector<double>{0, 1, 11, 10, 100}));
}

} // namespace
} // namespace driftwood
