#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/buttons/callback_buttons.hpp"
#include "fernhorn/buttons/parameter_buttons.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/testing/event_host.hpp"
#include "fernhorn/testing/parameter_fixture.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/testing/window_testing.hpp"

#include <QPainter>
#include <QTest>

#include <gmock/gmock.h>

#include <functional>

namespace fernhorn {
namespace {

using platform::testing::pixelsOf;
using platform::testing::showActive;
using testing::ElementsAre;
using testing::Pair;

constexpr QSizeF size(84, 36);
constexpr auto yellow = ChaosButtonColor::yellow;
const std::vector<std::string> waves{"Sine", "Saw", "Straße"};

const platform::ImageAsset* image(const char* name) {
    return resourceBundle().assets().image(QString::fromLatin1(name));
}

class ParameterButtons : public WithParameter {
  protected:
    QWidget window;

    static void SetUpTestSuite() { resourceBundle().assets().registerFonts(); }
    void SetUp() override { window.resize(400, 200); }
    void makeIndexed(float value = 0) {
        use({.range = {0, 2}, .defaultValue = value, .valueStrings = waves});
    }
    template<class Button>
    Button& place(Button* button, QPoint at = {10, 10}) {
        button->setParent(&window);
        button->move(at);
        button->show();
        showActive(window);
        return *button;
    }
    ChaosToggleButton& placeChaos(int index, QPoint at = {10, 10}) {
        return place(new ChaosToggleButton(parameter, index, yellow, size), at);
    }
};

QImage canvas(QSizeF points) {
    QImage picture((points * 2).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(2);
    picture.fill(QColor("#2a2830"));
    return picture;
}

QImage pictureOf(QWidget& widget) {
    QImage picture = canvas(widget.size());
    QPainter painter(&picture);
    widget.render(&painter, {}, {}, QWidget::DrawChildren);
    return picture;
}

QImage pictureOf(const char* name, QSizeF points) {
    QImage picture = canvas(points);
    QPainter painter(&picture);
    platform::paintImage(painter, QRectF({}, points), *image(name));
    return picture;
}

// What is seen.

TEST_F(ParameterButtons, ShowTheImageOfTheirState) {
    const auto mode = [this](ToggleButtonStyle style) {
        return [this, style] {
            return new ModeToggleButton(parameter, 1, style, 13, Qt::white, {60, 27});
        };
    };
    const struct {
        std::function<PressButton*()> make;
        std::vector<float> off, on;
        const char* images[4]; // at rest off and on, pressed off and on
    } cases[] = {
        {[this] { return new ChaosToggleButton(parameter, 1, yellow, size); },
         {0, 0.99F, 2},
         {1, 1.99F},
         {"chaos-button-grey-off", "chaos-button-grey-on-yellow", "chaos-button-grey-off-down",
          "chaos-button-grey-on-yellow-down"}},
        {[this] {
             return new ChaosToggleButton(parameter, 0, yellow, {100, 40});
         },
         {-1, 1},
         {-0.9F, 0, 0.9F}, // cut towards zero
         {"chaos-button-grey-off", "chaos-button-grey-on-yellow", "chaos-button-grey-off-down",
          "chaos-button-grey-on-yellow-down"}},
        {[this] {
             return new ChaosToggleButtonNarrow(parameter, {}, {44, 36});
         },
         {0, 0.5F, 1.01F, 2},
         {1},
         {"chaos-button-narrow-grey-off", "chaos-button-narrow-grey-on-yellow",
          "chaos-button-narrow-grey-off-down", "chaos-button-narrow-grey-on-yellow-down"}},
        {[this] {
             return new ToggleButton(parameter, QString(), 13, Qt::white, {60, 27});
         },
         {0, 0.5F, 2},
         {1},
         {"modern-button", "modern-button-on", "modern-button-down", "modern-button-on-down"}},
        {mode(ToggleButtonStyle::modern),
         {0},
         {1, 1.5F},
         {"modern-button", "modern-button-on", "modern-button-down", "modern-button-on-down"}},
        {mode(ToggleButtonStyle::retro),
         {0},
         {1},
         {"retro-button", "modern-button-on", "retro-button", "retro-button-down"}},
        {[this] {
             return new LeftRightArrowButton(parameter, 2, {40, 28});
         },
         {0, 1, 1.9F},
         {2},
         {"chaos-button-small-yellow-right", "chaos-button-small-yellow-left",
          "chaos-button-small-yellow-right-down", "chaos-button-small-yellow-left-down"}},
        {[this] {
             return new ParameterHoldButton(parameter, image("hold-pad"), image("hold-pad-down"));
         },
         {0, 1},
         {},
         {"hold-pad", {}, "hold-pad-down"}},
        {[] {
             return new ImageButton(image("die-button"), image("die-button-down"), {}, {36, 36});
         },
         {0},
         {},
         {"die-button", {}, "die-button-down"}},
        {[] { return new ChaosButton(yellow, {}, {}, size); },
         {0},
         {},
         {"chaos-button-yellow", {}, "chaos-button-yellow-down"}},
    };
    use({.range = {-1, 2}});
    for (const auto& [make, off, on, images] : cases) {
        const std::unique_ptr<PressButton> button(make());
        EXPECT_EQ(button->size(), button->buttonSize().toSize());
        for (const bool isOn : {false, true}) {
            for (const float value : isOn ? on : off) {
                setByHost(value);
                const QSizeF points = button->buttonSize();
                EXPECT_EQ(pictureOf(*button), pictureOf(images[isOn ? 1 : 0], points)) << value;
                QTest::mousePress(button.get(), Qt::LeftButton);
                const QImage pressed = pictureOf(images[isOn ? 3 : 2], points);
                EXPECT_EQ(pictureOf(*button), pressed) << value;
                QTest::mouseMove(button.get(), {500, 500});
                EXPECT_EQ(pictureOf(*button), pressed); // until it is released
                QTest::mouseRelease(button.get(), Qt::LeftButton, {}, {500, 500});
            }
        }
        button->setEnabled(false);
        EXPECT_NE(pictureOf(*button), pictureOf(images[on.empty() ? 0 : 1], button->buttonSize()));
        setByHost(0);
    }
}

TEST_F(ParameterButtons, HaveTheCaptionAndItsCase) {
    makeIndexed();
    const auto named = TestParameter{}.on(queue); // "Parameter"
    const QColor ink("#80c0f0");
    const QColor rest = kitColor("chaosToggleText");
    const QColor pressed = kitColor("chaosToggleTextPressed");
    const QColor dark = kitColor("ChaosYellowText");
    const struct {
        PressButton* button;
        QString text, spoken;
        int size;
        QColor atRest, pressed;
    } cases[] = {
        {new ChaosToggleButton(parameter, 2, yellow, size), "STRASSE", "Straße", 13, rest, pressed},
        {new ChaosToggleButton(named, 2, yellow, size), "", "Parameter", 13, rest, pressed},
        {new ChaosToggleButtonNarrow(named, "Mid", size), "Mid", "Parameter", 13, rest, pressed},
        {new ModeToggleButton(parameter, 1, ToggleButtonStyle::retro, 11, ink, size), "SAW", "Saw",
         11, ink, ink},
        {new ToggleButton(named, {}, 15, ink, size), "PARAMETER", "Parameter", 15, ink, ink},
        {new ToggleButton(named, "bPm", 15, ink, size), "bPm", "bPm", 15, ink, ink},
        {new ChaosButton(yellow, "Roll on", {}, size), "Roll on", "Roll on", 13, dark, dark},
    };
    for (const auto& expected : cases) {
        PressButton& button = place(expected.button);
        EXPECT_EQ(button.face().caption.text, expected.text);
        EXPECT_EQ(button.face().caption.font.pixelSize(), expected.size);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name),
                  expected.spoken);
        if (!expected.text.isEmpty()) {
            EXPECT_GT(pixelsOf(pictureOf(button), expected.atRest), 15)
                << expected.text.toStdString();
            QTest::mousePress(&button, Qt::LeftButton);
            EXPECT_GT(pixelsOf(pictureOf(button), expected.pressed), 15)
                << expected.text.toStdString();
            QTest::mouseRelease(&button, Qt::LeftButton);
        }
        delete expected.button;
    }
    EXPECT_DEATH(placeChaos(3), "Fatal error: The parameter parameter has no value string 3");
}

// Presses.

// How a press ends is tested for all buttons at once; here, that its touch is closed.
TEST_F(ParameterButtons, EveryEndOfAPressClosesItsTouch) {
    const std::function<void(PressButton&)> ends[] = {
        [](auto& button) {
            QTest::mouseRelease(&button, Qt::LeftButton, {}, {83, 35});
        },
        [](auto& button) {
            QTest::mouseRelease(&button, Qt::LeftButton, {}, {84, 35});
        },
        [](auto& button) { button.window()->setEnabled(false); },
        [](auto& button) { button.hide(); },
        [](auto& button) { button.window()->close(); },
        [](auto& button) { delete &button; },
    };
    for (const auto& end : ends) {
        makeIndexed();
        const QPointer<PressButton> button(&placeChaos(1));
        QTest::mousePress(button, Qt::LeftButton, {}, {5, 5});
        EXPECT_THAT(events, ElementsAre(Pair(1, 0)));
        end(*button);
        queue.drain();
        if (&end == ends) {
            EXPECT_THAT(events, ElementsAre(Pair(1, 0), Pair(0, 1), Pair(2, 1)));
        } else {
            EXPECT_THAT(events, ElementsAre(Pair(1, 0), Pair(2, 0)));
        }
        EXPECT_FALSE(button != nullptr && button->isPressed());
        delete button;
        window.setEnabled(true);
    }
}

TEST_F(ParameterButtons, AHoldButtonIsOneWhileHeldByMouseOrKey) {
    use({.defaultValue = 1});
    auto& button =
        place(new ParameterHoldButton(parameter, image("hold-pad"), image("hold-pad-down")));
    const auto expectHeld = [&](bool isHeld) {
        queue.drain();
        EXPECT_EQ(button.isGestureActive(), isHeld);
        EXPECT_EQ(parameter->value(), isHeld ? 1 : 0);
    };
    QTest::mousePress(&button, Qt::LeftButton);
    expectHeld(true);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, {-5000, 5000});
    expectHeld(false);
    button.setFocus(Qt::TabFocusReason);
    for (const auto key : {Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyPress(&button, key);
        expectHeld(true);
        platform::testing::sendKey(button, QEvent::KeyRelease, key, {}, true);
        expectHeld(true);
        QTest::keyRelease(&button, key);
        expectHeld(false);
    }
    QTest::keyPress(&button, Qt::Key_Space);
    button.clearFocus();
    expectHeld(false);
    QTest::keyRelease(&button, Qt::Key_Space);
    EXPECT_EQ(std::ranges::count(events, 2, &std::pair<int, float>::first), 4);
}

TEST_F(ParameterButtons, KeysThatPressNothingAndOtherMouseButtonsGoOnToTheHost) {
    use({});
    EventHost host;
    auto& button = *new ToggleButton(parameter, {}, 13, Qt::white, size, &host);
    host.show();
    for (const auto& [key, modifiers] : {std::pair(Qt::Key_A, Qt::KeyboardModifiers()),
                                         {Qt::Key_Space, Qt::ControlModifier},
                                         {Qt::Key_Return, Qt::AltModifier},
                                         {Qt::Key_Escape, {}},
                                         {Qt::Key_Right, {}}}) {
        QTest::keyClick(&button, key, modifiers);
    }
    QTest::mouseClick(&button, Qt::RightButton);
    QTest::mouseClick(&button, Qt::MiddleButton);
    constexpr int expected = 9; // with the Control and Alt keys themselves
    EXPECT_EQ(host.events, expected);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::mouseClick(&button, Qt::LeftButton);
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton); // it stands in the way
    EXPECT_EQ(host.events, expected);
    EXPECT_EQ(events.size(), 6U);
    EXPECT_FALSE(
        QAccessible::queryAccessibleInterface(&button)->actionInterface()->actionNames().contains(
            QAccessibleActionInterface::toggleAction()));
}

TEST_F(ParameterButtons, ArrowKeysChooseWithinAGroup) {
    makeIndexed();
    std::vector<IndexButton*> group;
    for (const int i : {2, 0, 1}) { // the index counts, not who was there first
        group.push_back(&place(
            new ModeToggleButton(parameter, i, ToggleButtonStyle::modern, 12, Qt::white, {60, 27}),
            {i * 64, 0}));
    }
    const auto other = TestParameter{.range = {0, 2}, .valueStrings = waves}.on(queue);
    place(new ChaosToggleButton(other, 1, yellow, size), {0, 50});
    std::ranges::sort(group, {}, &IndexButton::valueIndex);
    group[0]->setFocus(Qt::TabFocusReason);
    const struct {
        Qt::Key key;
        Qt::LayoutDirection direction;
        int chosen;
    } cases[] = {{Qt::Key_Right, Qt::LeftToRight, 1}, {Qt::Key_Down, Qt::LeftToRight, 2},
                 {Qt::Key_Right, Qt::LeftToRight, 0}, {Qt::Key_Left, Qt::LeftToRight, 2},
                 {Qt::Key_Up, Qt::LeftToRight, 1},    {Qt::Key_Right, Qt::RightToLeft, 0},
                 {Qt::Key_Left, Qt::RightToLeft, 1}};
    for (const auto& [key, direction, chosen] : cases) {
        window.setLayoutDirection(direction);
        events.clear();
        QTest::keyClick(QApplication::focusWidget(), key);
        EXPECT_EQ(QApplication::focusWidget(), group[static_cast<std::size_t>(chosen)]);
        ASSERT_EQ(events.size(), 3U);
        queue.drain();
        EXPECT_EQ(parameter->value(), static_cast<float>(chosen));
    }
    group[2]->setEnabled(false);
    QTest::keyClick(group[1], Qt::Key_Left); // mirrored still: on to the next that can be chosen
    queue.drain();
    EXPECT_EQ(parameter->value(), 0);
    EXPECT_EQ(other->value(), 0);
}

TEST_F(ParameterButtons, CallbacksKnowTheOptionKeyAndMayEndTheirButton) {
    bool isHeld = false;
    std::vector<bool> heard;
    auto& die = place(new ImageButton(
        image("die-button"), image("die-button-down"),
        [&](bool option) { heard.push_back(option); }, {36, 36}, nullptr, [&] { return isHeld; }));
    QTest::mousePress(&die, Qt::LeftButton);
    isHeld = true; // what counts is the end of the click
    QTest::mouseRelease(&die, Qt::LeftButton);
    QTest::keyClick(&die, Qt::Key_Space, Qt::AltModifier);
    isHeld = false;
    QTest::mouseClick(&die, Qt::LeftButton);
    EXPECT_THAT(heard, ElementsAre(true, true, false));

    QPointer<ChaosButton> self;
    self = &place(new ChaosButton(
        yellow, "Last", [&] { delete self; }, size));
    QTest::mouseClick(self.data(), Qt::LeftButton);
    EXPECT_EQ(self, nullptr);
}

TEST_F(ParameterButtons, TheFocusRingIsForTheKeyboard) {
    use({});
    auto& button = place(new ToggleButton(parameter, QString(), 13, Qt::white, {60, 27}));
    const QImage plain = pictureOf(button);
    button.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(pictureOf(button), plain);
    button.clearFocus();
    button.setFocus(Qt::TabFocusReason);
    EXPECT_NE(pictureOf(button), plain);
}

// Styles of the platform's button.

TEST_F(ParameterButtons, StylesPaintTheLabelOverTheImageOfTheState) {
    const QColor ink("#80c0f0");
    const QColor kit = kitColor("buttonText");
    const struct {
        std::shared_ptr<const platform::ButtonStyle> style;
        const char *atRest, *pressed;
        QColor ink;
        int height;
    } cases[] = {
        {std::make_shared<ModernButtonStyle>(false, ink), "modern-button", "modern-button-down",
         ink, 27},
        {std::make_shared<ModernButtonStyle>(true, ink), "modern-button-on",
         "modern-button-on-down", kit, 27},
        {std::make_shared<SettingsButtonStyle>(FernFont::rocket), "settings-button",
         "settings-button-down", kit, 32},
    };
    for (const auto& expected : cases) {
        for (const QString& label : {QString(), QStringLiteral("HELLIT")}) {
            platform::Button button(label, expected.style);
            button.setLabelWidth(70);
            EXPECT_EQ(button.sizeHint().height(), expected.height);
            button.resize(button.sizeHint());
            for (const char* const name : {expected.atRest, expected.pressed}) {
                button.setDown(name == expected.pressed);
                if (label.isEmpty()) {
                    EXPECT_EQ(pictureOf(button), pictureOf(name, button.size())) << name;
                } else {
                    EXPECT_GT(pixelsOf(pictureOf(button), expected.ink), 15) << name;
                }
            }
        }
    }
}

} // namespace
} // namespace fernhorn
