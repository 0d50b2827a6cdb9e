#include "fernhorn/testing/dials_fixture.hpp"

#include <QApplication>
#include <QInputMethodEvent>
#include <QTest>

#include <gmock/gmock.h>

namespace fernhorn {
namespace {

using platform::testing::showActive;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Units = platform::AudioUnitParameterUnit;

TEST_F(Dials, TypedValuesAreCommittedOnce) {
    const struct {
        TestParameter what;
        const char* text;
        float value;
    } cases[] = {
        {{.units = Units::absoluteCents, .range = {0, 12800}}, "12", 1200},
        {{.units = Units::hertz, .range = {20, 20000}, .defaultValue = 440}, "1e3", 1000},
        {{.units = Units::hertz, .range = {20, 20000}, .defaultValue = 440}, "99999", 20000},
        {{.units = Units::hertz, .range = {20, 20000}, .defaultValue = 440}, "-3", 20},
        {{.range = {0, 10}, .defaultValue = 4}, "1,5", 4}, // not understood
        {{.range = {0, 10}, .defaultValue = 4}, "", 4},
    };
    for (const auto& [what, text, expected] : cases) {
        for (const bool onItsOwn : {true, false}) {
            use(what);
            ended = 0;
            auto& label = onItsOwn ? static_cast<QWidget&>(placeLabel()) : placeDial();
            const float before = parameter->value();
            QTest::mouseClick(&label, Qt::LeftButton, {}, {label.width() / 2, label.height() - 20});
            auto& line = field(label);
            EXPECT_EQ(line.selectedText(), line.text());
            EXPECT_TRUE(line.hasFocus());
            line.clear();
            QTest::keyClicks(&line, QLatin1String(text));
            EXPECT_EQ(ended, 0);
            QTest::keyClick(&line, Qt::Key_Return);
            EXPECT_EQ(ended, 1);
            EXPECT_EQ(value(), expected) << text;
            if (expected == before) {
                EXPECT_THAT(events, IsEmpty());
            } else {
                EXPECT_THAT(events, ElementsAre(Pair(0, expected)));
            }
            EXPECT_FALSE(line.hasFocus()); // keys go to the host again
            EXPECT_TRUE(line.isHidden());
            delete &label;
        }
    }
}

TEST_F(Dials, EscapeAndLeavingDiffer) {
    auto& label = placeLabel();
    auto& other = *new QWidget(&window);
    other.setGeometry(150, 100, 50, 50);
    other.show();
    const auto type = [&] {
        label.openField();
        label.openField();                                     // once is enough
        EXPECT_EQ(field(label).text(), QStringLiteral("0.5")); // whatever was left in it
        field(label).setText(QStringLiteral("7"));
        EXPECT_EQ(label.valueString(), QStringLiteral("7"));
    };
    type();
    QTest::keyClick(&field(label), Qt::Key_Escape);
    EXPECT_FALSE(label.isEditing());
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(label.valueString(), QStringLiteral("0.5"));

    label.clearFocus();
    const QImage readOut = label.grab().toImage();
    const std::function<void()> ways[] = {
        [&] { QTest::mouseClick(&other, Qt::LeftButton); },
        [&] { QTest::keyClick(&field(label), Qt::Key_Tab); },
    };
    for (const auto& leave : ways) {
        type();
        // Its menu and clicks on the label itself do not end it.
        QFocusEvent popUp(QEvent::FocusOut, Qt::PopupFocusReason);
        QCoreApplication::sendEvent(&field(label), &popUp);
        QTest::mouseClick(&label, Qt::LeftButton, {}, {label.width() / 2, 2});
        EXPECT_TRUE(label.isEditing());
        leave();
        EXPECT_FALSE(label.isEditing());
        EXPECT_EQ(ended, 1);
        EXPECT_EQ(label.valueString(), QStringLiteral("7")); // until the value changes
        label.clearFocus();
        EXPECT_EQ(label.grab().toImage(), readOut);
    }
    EXPECT_THAT(events, IsEmpty());
    setByHost(0.25F);
    EXPECT_EQ(label.valueString(), QStringLiteral("0.2"));
}

TEST_F(Dials, AutomationReplacesWhatIsTyped) {
    auto& dial = placeDial();
    dial.openField();
    setByHost(0.25F);
    EXPECT_EQ(field(dial).selectedText(), QStringLiteral("0.2")); // to be typed over, as before
    QTest::keyClicks(&field(dial), QStringLiteral("99"));
    setByHost(0.75F);
    EXPECT_EQ(field(dial).text(), QStringLiteral("0.8"));
    EXPECT_FALSE(field(dial).hasSelectedText());
    EXPECT_FALSE(platform::testing::sendWheel(dial, 120)); // the page's, not the knob's
    EXPECT_EQ(value(), 0.75F);
    EXPECT_TRUE(dial.isEditing());
}

TEST_F(Dials, AnotherWindowOnlyBorrowsTheKeyboard) {
    auto& dial = placeDial();
    dial.setFocus(Qt::TabFocusReason);
    auto& next = *new QWidget(&window);
    next.setFocusPolicy(Qt::TabFocus);
    next.show();
    dial.openField();
    QTest::keyClicks(&field(dial), QStringLiteral("0.2"));
    {
        QWidget other, *p = &other;
        showActive(*p);
        QTest::mouseClick(p, Qt::LeftButton);
        EXPECT_TRUE(dial.isEditing());
        QApplication::setActiveWindow(&window);
    }
    EXPECT_TRUE(field(dial).hasFocus());
    QTest::keyClicks(&field(dial), QStringLiteral("5"));
    EXPECT_EQ(field(dial).text(), QStringLiteral("0.25"));
}

TEST_F(Dials, TabLeavesTheFieldForTheNeighboursOfItsDial) {
    auto& before = place(new QWidget);
    auto& dial = placeDial();
    auto& label = placeLabel();
    auto& after = place(new QWidget);
    before.setFocusPolicy(Qt::TabFocus);
    after.setFocusPolicy(Qt::TabFocus);
    const struct {
        QWidget& from;
        Qt::Key key;
        QWidget& to;
    } cases[] = {{dial, Qt::Key_Tab, label},
                 {dial, Qt::Key_Backtab, before},
                 {label, Qt::Key_Tab, after},
                 {label, Qt::Key_Backtab, dial}};
    for (const auto& [from, key, to] : cases) {
        from.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&from, Qt::Key_Return);
        QTest::keyClick(&field(from), key);
        EXPECT_EQ(QApplication::focusWidget(), &to) << key;
        EXPECT_TRUE(field(from).isHidden());
    }
}

TEST_F(Dials, AHeldReturnOpensTheFieldOnce) {
    auto& dial = placeDial();
    dial.setFocus(Qt::TabFocusReason);
    const auto key = [](QEvent::Type type, quint64 time, bool isRepeat = false) {
        QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, QString(), isRepeat);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    };
    key(QEvent::KeyPress, 100);
    key(QEvent::KeyRelease, 600, true);
    key(QEvent::KeyPress, 600, true);
    key(QEvent::KeyRelease, 630); // a repeat that Qt has not recognised
    key(QEvent::KeyPress, 630);
    key(QEvent::KeyRelease, 660);
    EXPECT_TRUE(dial.isEditing());
    key(QEvent::KeyPress, 900);
    EXPECT_FALSE(dial.isEditing());
    EXPECT_EQ(ended, 1);
}

/// Writes the unit itself.
class KiloFormatter final : public LabelFormatter {
  public:
    [[nodiscard]] std::string format(float /*value*/) const override { return "3.07 kHz"; }
    [[nodiscard]] std::optional<float> parse(std::string_view /*text*/) const override {
        return std::nullopt;
    }
    [[nodiscard]] bool writesUnit() const override { return true; }
};

TEST_F(Dials, TheUnitIsWrittenOnce) {
    use({.units = Units::hertz, .range = {20, 20000}, .defaultValue = 440});
    const auto kilo = std::make_shared<KiloFormatter>();
    EXPECT_EQ(textWithUnit(*parameter, *kilo, 3070), QStringLiteral("3.07 kHz"));
    EXPECT_EQ(textWithUnit(*parameter, DefaultLabelFormatter(*parameter, 0), 440),
              QStringLiteral("440 Hz"));
    auto wide = look, bare = look;
    wide.labelWidth = bare.labelWidth = 1;
    bare.showSuffix = false;
    EXPECT_EQ(DialLabel(parameter, wide, kilo, {}, Qt::red, FernFont::rocket).sizeHint(),
              DialLabel(parameter, bare, kilo, {}, Qt::red, FernFont::rocket).sizeHint());
}

TEST_F(Dials, TheFieldTakesInputMethodText) {
    auto& label = placeLabel();
    label.openField();
    QInputMethodEvent composing(QStringLiteral("３"), {});
    QCoreApplication::sendEvent(&field(label), &composing);
    EXPECT_EQ(label.valueString(), QString()); // the selection went, nothing is there yet
    QInputMethodEvent committed;
    committed.setCommitString(QStringLiteral("0.75"));
    QCoreApplication::sendEvent(&field(label), &committed);
    QTest::keyClick(&field(label), Qt::Key_Return);
    EXPECT_EQ(value(), 0.75F);
}

TEST_F(Dials, WhoeverHearsOfTheEndMayDestroyTheLabel) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        auto* label = &placeLabel();
        delete label;
        label = new DialLabel(
            parameter, look, std::make_shared<DefaultLabelFormatter>(*parameter, 1),
            [&label] { delete std::exchange(label, nullptr); }, Qt::red, FernFont::rocket, &window);
        label->show();
        label->openField();
        QTest::keyClick(&field(*label), key);
        EXPECT_EQ(label, nullptr);
    }
}

} // namespace
} // namespace fernhorn
