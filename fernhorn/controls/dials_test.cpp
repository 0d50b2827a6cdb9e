#include "fernhorn/controls/chaos_dial.hpp"
#include "fernhorn/controls/dial_label.hpp"
#include "fernhorn/controls/film_strip.hpp"
#include "fernhorn/controls/medium_dial.hpp"
#include "fernhorn/controls/parameter_steps.hpp"
#include "fernhorn/controls/tiny_dial.hpp"
#include "fernhorn/controls/value_field.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/format/default_label_formatter.hpp"
#include "fernhorn/format/label_name_formatter.hpp"
#include "fernhorn/model/test_parameter.hpp"
#include "platform/testing/window_testing.hpp"

#include <QAccessible>
#include <QApplication>
#include <QInputMethodEvent>
#include <QPainter>
#include <QScrollArea>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <gmock/gmock.h>

namespace fernhorn {
namespace {

using platform::testing::runFor;
using platform::testing::runUntil;
using platform::testing::showActive;
using testing::ElementsAre;
using testing::FloatNear;
using testing::IsEmpty;
using testing::Pair;
using Units = platform::AudioUnitParameterUnit;

constexpr LabelDisplayOptions look{.valueColor = {1, 1, 1, 1},
                                   .labelFontSize = 11,
                                   .valueFontSize = 13,
                                   .editingFontSize = 13,
                                   .showSuffix = true,
                                   .showName = false,
                                   .labelWidth = 52};

class Dials : public testing::Test {
  protected:
    core::MainQueue queue;
    QWidget window;
    std::shared_ptr<AudioParameter> parameter;
    AutomationEvents events;
    int ended = 0;

    static void SetUpTestSuite() { resourceBundle().assets().registerFonts(); }

    void SetUp() override { use({.defaultValue = 0.5F}); }
    void use(TestParameter what) {
        parameter = what.on(queue);
        events.clear();
        recordEvents(*parameter, events);
    }
    float value() {
        queue.drain();
        return parameter->value();
    }
    void setByHost(float value) {
        parameter->setValue(value, fromUnit, change);
        queue.drain();
    }
    std::function<void()> countEnd() {
        return [this] { ++ended; };
    }
    template<class Control>
    Control& place(Control* control) {
        control->setParent(&window);
        control->move(20, 20);
        control->resize(control->sizeHint().expandedTo(QSize(40, 40)));
        control->show();
        window.resize(300, 200);
        showActive(window);
        return *control;
    }
    ChaosDial& placeDial() {
        return place(new ChaosDial(parameter, ModernDialColor::grey, look, nullptr, countEnd()));
    }
    DialLabel& placeLabel(std::shared_ptr<const LabelFormatter> formatter = nullptr) {
        if (formatter == nullptr) {
            formatter = std::make_shared<DefaultLabelFormatter>(*parameter, 1);
        }
        return place(new DialLabel(parameter, look, std::move(formatter), countEnd(), Qt::red,
                                   FernFont::rocket));
    }
    static ValueField& field(QWidget& label) {
        auto* const found = label.findChild<ValueField*>();
        EXPECT_NE(found, nullptr);
        return *found;
    }
};

void move(QWidget& widget, QPoint to, Qt::KeyboardModifiers modifiers = {},
          Qt::MouseButtons buttons = Qt::LeftButton) {
    QMouseEvent event(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, buttons,
                      modifiers);
    QCoreApplication::sendEvent(&widget, &event);
}

bool turnWheel(QWidget& widget, int angle) {
    const QPoint at = widget.rect().center();
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    event.ignore();
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

// What is seen.

TEST_F(Dials, HaveTheirNumbersAndImages) {
    const ChaosDial chaos(parameter, ModernDialColor::grey, look);
    const MediumDial medium(parameter, SmallDialColor::purple, look);
    const TinyDial tiny(parameter, look);
    const struct {
        const Dial& dial;
        double minDrag;
        float factor;
        double overhang;
    } cases[] = {{chaos, 6, 0.005F, 16}, {medium, 6, 0.005F, 16}, {tiny, 3, 0.01F, 0}};
    for (const auto& [dial, minDrag, factor, overhang] : cases) {
        EXPECT_EQ(dial.imageCount(), 51);
        EXPECT_EQ(dial.knobMinDrag(), minDrag);
        EXPECT_EQ(dial.knobDragScaleFactor(), factor);
        EXPECT_EQ(dial.overhang(), overhang);
        EXPECT_EQ(dial.formatter()->format(0.25F), "0.2"); // one place, halves to even
        EXPECT_EQ(dial.imageIndex(), 1);                   // until it is shown
    }
    const auto& assets = resourceBundle().assets();
    for (const char* prefix :
         {"knobs/chaos-dial-grey_", "knobs/dial-small-grey-", "knobs/dial-medium-blue-",
          "knobs/dial-medium-yellow-", "knobs/dial-medium-red-", "knobs/dial-medium-purple-"}) {
        const FilmStrip& strip = FilmStrip::ofKit(QLatin1String(prefix), 51);
        EXPECT_EQ(strip.frameName(7), QLatin1String(prefix) + QStringLiteral("07"));
        for (int i = 1; i <= 51; ++i) {
            EXPECT_NE(assets.image(strip.frameName(i)), nullptr) << prefix << i;
        }
    }
    for (const char* color : {"pluginGrey", "pluginBlue", "pluginYellow", "pluginRed",
                              "pluginPurple", "tinyDialLabel"}) {
        EXPECT_TRUE(assets.color(QLatin1String(color)).isValid()) << color;
    }
}

TEST_F(Dials, ShowTheFrameOfTheValueWhereItBelongs) {
    struct Case {
        Dial* dial;
        const char* frames;
        QPoint knob; // in a dial of its own size
    };
    LabelDisplayOptions narrow = look;
    narrow.showSuffix = false;
    narrow.labelWidth = 20;
    narrow.valueFontSize = 8;
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const Case cases[] = {
            {new ChaosDial(parameter, ModernDialColor::grey, narrow), "knobs/chaos-dial-grey_", {}},
            {new MediumDial(parameter, SmallDialColor::red, narrow), "knobs/dial-medium-red-", {}},
            {new TinyDial(parameter, narrow), "knobs/dial-small-grey-", {}},
        };
        for (const auto& [dial, frames, knob] : cases) {
            dial->setParent(&window);
            dial->resize(dial->sizeHint());
            dial->ensurePolished();
            for (const auto& [position, frame] : {std::pair(0.0F, 1), {0.5F, 26}, {1.0F, 51}}) {
                setByHost(position);
                EXPECT_EQ(dial->imageIndex(), frame);
                QImage drawn((QSizeF(dial->size()) * scale).toSize(),
                             QImage::Format_ARGB32_Premultiplied);
                QImage expected = drawn;
                drawn.setDevicePixelRatio(scale);
                drawn.fill(Qt::black);
                expected.fill(Qt::black);
                dial->render(&drawn, {}, {}, QWidget::DrawChildren);
                const FilmStrip& strip = FilmStrip::ofKit(QLatin1String(frames), 51);
                const auto* const image = resourceBundle().assets().image(strip.frameName(frame));
                QPainter(&expected).drawImage(0, 0, image->image(scale));
                // The label covers the lower part.
                const int height = static_cast<int>(image->size().height() * 0.4 * scale);
                const QRect free(0, 0, image->image(scale).width(), height);
                drawn.setDevicePixelRatio(1);
                EXPECT_EQ(drawn.copy(free), expected.copy(free)) << frames << scale << frame;
            }
            delete dial;
        }
    }
}

TEST_F(Dials, FramesAreReducedOnceFromTheNextLargerVariant) {
    const auto* const image =
        resourceBundle().assets().image(QStringLiteral("knobs/chaos-dial-grey_26"));
    const auto reduced = [&](qreal from, qreal to) {
        return image->image(from).scaled((image->size() * to).toSize(), Qt::IgnoreAspectRatio,
                                         Qt::SmoothTransformation);
    };
    EXPECT_EQ(image->image(1.25), reduced(2, 1.25));
    EXPECT_EQ(image->image(1.5), reduced(2, 1.5));
    // Also in a frame that is smaller than the image.
    QImage drawn(28, 32, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::black);
    QImage expected = drawn;
    QPainter painter(&drawn);
    FilmStrip::ofKit(QStringLiteral("knobs/chaos-dial-grey_"), 51).paint(painter, drawn.rect(), 26);
    FilmStrip::ofKit(QStringLiteral("knobs/none"), 2).paint(painter, drawn.rect(), 1);
    QPainter(&expected).drawImage(0, 0, reduced(1, 0.5));
    EXPECT_EQ(drawn, expected);
}

TEST_F(Dials, PaintOnlyWhatTheirContentIsAskedFor) {
    std::vector<int> painted;
    auto& knob = place(
        new KnobControl(parameter, 6, 0.005F, 11, [&painted](QPainter&, const QRectF&, int index) {
            painted.push_back(index);
        }));
    runFor(20);
    EXPECT_EQ(knob.imageIndex(), 6);
    painted.clear();
    setByHost(0.52F); // the same frame
    runFor(20);
    EXPECT_THAT(painted, IsEmpty());
    setByHost(0.71F);
    runFor(20);
    EXPECT_THAT(painted, ElementsAre(8));
}

// Mouse and keys.

TEST_F(Dials, ADragHidesThePointerAndShowsTheValue) {
    use({.units = Units::percent, .range = {0, 100}, .defaultValue = 50});
    auto& dial = placeDial();
    QTest::mousePress(&dial, Qt::LeftButton, {}, {5, 5});
    EXPECT_FALSE(dial.lastDragValue().has_value());
    QTest::mouseMove(&dial, {5, -1});
    EXPECT_EQ(dial.lastDragValue(), -1);
    EXPECT_EQ(dial.cursor().shape(), Qt::BlankCursor);
    move(dial, {5, -21});
    EXPECT_NEAR(value(), 60, 1e-4);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("60.0 %"));
    move(dial, {5, -41}, Qt::ShiftModifier);
    EXPECT_NEAR(value(), 61, 1e-4);
    QTest::mousePress(&dial, Qt::RightButton, {}, {5, -41}); // in the midst of it
    QTest::mouseRelease(&dial, Qt::RightButton, {}, {5, -41});
    EXPECT_TRUE(turnWheel(dial, 120));
    QTest::keyClick(&dial, Qt::Key_End);
    EXPECT_TRUE(parameter->isBeingInteractivelyEdited());
    QTest::mouseRelease(&dial, Qt::LeftButton, {}, {5, -41});
    EXPECT_FALSE(parameter->isBeingInteractivelyEdited());
    EXPECT_EQ(dial.cursor().shape(), Qt::ArrowCursor);
    EXPECT_THAT(events, ElementsAre(Pair(1, 50), Pair(0, FloatNear(60, 1e-3F)),
                                    Pair(0, FloatNear(61, 1e-3F)), Pair(2, FloatNear(61, 1e-3F))));
}

TEST_F(Dials, WhateverTakesThePointerAwayReleasesTheTouch) {
    auto& dial = placeDial();
    const std::function<void()> ends[] = {
        [&] {
            move(dial, {5, 60}, {}, Qt::NoButton);
        }, // the release went elsewhere
        [&] { dial.setEnabled(false), dial.setEnabled(true); },
        [&] { dial.hide(), dial.show(); },
        [&] { window.close(), showActive(window); },
        [&] {
            QWidget other, *p = &other;
            showActive(*p), QApplication::setActiveWindow(&window);
        },
        [&] {
            QFocusEvent event(QEvent::FocusOut);
            QCoreApplication::sendEvent(&dial, &event);
        },
        [&] { delete &dial; },
    };
    for (const auto& end : ends) {
        events.clear();
        QTest::mousePress(&dial, Qt::LeftButton, {}, {5, 5});
        QTest::mouseMove(&dial, {5, 20});
        EXPECT_EQ(events.size(), 1U);
        end();
        EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(2, 0.5F)));
        if (&end != std::end(ends) - 1) {
            move(dial, {5, 90});
            QTest::mouseRelease(&dial, Qt::LeftButton, {}, {5, 90});
            EXPECT_EQ(events.size(), 2U) << &end - ends;
        }
    }
}

TEST_F(Dials, DoubleClickAndAltClickResetTheKnobOnly) {
    auto& dial = placeDial();
    setByHost(0.75F);
    QTest::mousePress(&dial, Qt::LeftButton, {}, {5, 5});
    QTest::mouseRelease(&dial, Qt::LeftButton, {}, {5, 5});
    QTest::mouseDClick(&dial, Qt::LeftButton, {}, {5, 5});
    QTest::mouseRelease(&dial, Qt::LeftButton, {}, {5, 5});
    EXPECT_THAT(events, ElementsAre(Pair(0, 0.5F)));
    setByHost(0.75F);
    QTest::mouseClick(&dial, Qt::LeftButton, Qt::AltModifier, {5, 5});
    EXPECT_THAT(events, ElementsAre(Pair(0, 0.5F), Pair(0, 0.5F)));
    setByHost(0.75F);
    QTest::mouseClick(&dial, Qt::LeftButton, Qt::AltModifier, {dial.width() / 2, 48});
    EXPECT_EQ(events.size(), 2U); // that was the label's
    EXPECT_TRUE(dial.isEditing());
}

TEST_F(Dials, WheelAndKeysAreEdits) {
    auto& dial = placeDial();
    EXPECT_TRUE(turnWheel(dial, 60));
    EXPECT_TRUE(turnWheel(dial, 60));
    EXPECT_TRUE(parameter->isBeingInteractivelyEdited());
    EXPECT_TRUE(runUntil([&] { return !parameter->isBeingInteractivelyEdited(); }));
    EXPECT_THAT(events,
                ElementsAre(Pair(1, 0.5F), Pair(0, FloatNear(0.51F, 1e-5F)),
                            Pair(0, FloatNear(0.52F, 1e-5F)), Pair(2, FloatNear(0.52F, 1e-5F))));
    setByHost(0.5F);
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        float value;
    } keys[] = {{Qt::Key_Right, {}, 0.52F},   {Qt::Key_Up, Qt::ShiftModifier, 0.522F},
                {Qt::Key_Left, {}, 0.502F},   {Qt::Key_Down, {}, 0.482F},
                {Qt::Key_PageUp, {}, 0.582F}, {Qt::Key_PageDown, {}, 0.482F},
                {Qt::Key_Home, {}, 0},        {Qt::Key_End, {}, 1},
                {Qt::Key_Delete, {}, 0.5F},   {Qt::Key_Up, Qt::ControlModifier, 0.5F},
                {Qt::Key_Space, {}, 0.5F}};
    for (const auto& [key, modifiers, expected] : keys) {
        events.clear();
        const float before = value();
        QTest::keyClick(&dial, key, modifiers);
        EXPECT_NEAR(value(), expected, 1e-5) << key;
        if (before != value()) {
            EXPECT_THAT(events, ElementsAre(Pair(1, before), Pair(0, value()), Pair(2, value())));
        } else {
            EXPECT_THAT(events, IsEmpty());
        }
    }
}

TEST_F(Dials, ScrollingAPageThatHoldsThemTurnsNone) {
    QScrollArea page;
    auto* const content = new QWidget;
    content->setFixedSize(100, 2000);
    page.setWidget(content);
    auto* const dial = new ChaosDial(parameter, ModernDialColor::grey, look, nullptr, {}, content);
    page.resize(140, 200);
    showActive(page);
    EXPECT_FALSE(turnWheel(*dial, 120));
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(dial, &enter);
    EXPECT_FALSE(turnWheel(*dial, 120)); // the hand trembled
    EXPECT_THAT(events, IsEmpty());
    runFor(300);
    EXPECT_TRUE(turnWheel(*dial, 120));
    EXPECT_EQ(events.size(), 2U);
}

// The label.

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
        label.openField(); // once is enough
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
        [&] {
            QWidget dialog, *p = &dialog;
            showActive(*p), QApplication::setActiveWindow(&window);
        },
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
    field(dial).setText(QStringLiteral("0.5")); // the same text keeps its place
    QTest::keyClicks(&field(dial), QStringLiteral("99"));
    setByHost(0.75F);
    EXPECT_EQ(field(dial).text(), QStringLiteral("0.8"));
    EXPECT_TRUE(dial.isEditing());
}

TEST_F(Dials, NamesAreTypedInAnyCase) {
    use({.units = Units::indexed,
         .range = {0, 2},
         .valueStrings = std::vector<std::string>{"Sine", "Saw", "Noise"}});
    auto& label = placeLabel(std::make_shared<LabelNameFormatter>(*parameter));
    for (const auto& [text, expected] : {std::pair("NOISE", 2), {"saw", 1}, {"Square", 1}}) {
        label.openField();
        field(label).setText(QString::fromUtf8(text));
        QTest::keyClick(&field(label), Qt::Key_Enter);
        EXPECT_EQ(value(), static_cast<float>(expected));
    }
    EXPECT_EQ(label.valueString(), QStringLiteral("Saw"));
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

/// A host that counts the keys it gets.
class Host final : public QWidget {
  public:
    std::vector<int> keys;

  protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
};

TEST_F(Dials, KeysThatNobodyNeedsGoOnToTheHost) {
    Host host;
    host.resize(200, 200);
    auto* const dial =
        new ChaosDial(parameter, ModernDialColor::grey, look, nullptr, countEnd(), &host);
    auto* const label =
        new DialLabel(parameter, look, dial->formatter(), {}, Qt::red, FernFont::rocket, &host);
    label->move(100, 0);
    showActive(host);
    // Clicks leave the keyboard where it is.
    QApplication::focusWidget()->clearFocus();
    QTest::mouseClick(dial, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
    QTest::keyClick(dial, Qt::Key_Space);
    QTest::keyClick(label, Qt::Key_Space);
    QTest::keyClick(label, Qt::Key_Up);
    EXPECT_THAT(host.keys, ElementsAre(Qt::Key_Space, Qt::Key_Space, Qt::Key_Up));
    host.keys.clear();
    // Return opens the field and gives the keyboard back; in the field, Up is not the knob's.
    dial->setFocus(Qt::TabFocusReason);
    QTest::keyClick(dial, Qt::Key_Return);
    QTest::keyClick(&field(*dial), Qt::Key_Up);
    QTest::keyClick(&field(*dial), Qt::Key_F5);
    EXPECT_THAT(host.keys, ElementsAre(Qt::Key_Up, Qt::Key_F5));
    QTest::keyClick(&field(*dial), Qt::Key_Return);
    EXPECT_TRUE(dial->hasFocus());
    EXPECT_THAT(host.keys, ElementsAre(Qt::Key_Up, Qt::Key_F5));
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Dials, ADragFromTheLabelTurnsTheKnob) {
    auto& dial = placeDial();
    const QPoint on(dial.width() / 2, 48);
    QTest::mousePress(&dial, Qt::LeftButton, {}, on);
    QTest::mouseMove(&dial, on - QPoint(0, 6));
    QTest::mouseMove(&dial, on - QPoint(0, 16));
    QTest::mouseRelease(&dial, Qt::LeftButton, {}, on);
    EXPECT_NEAR(value(), 0.55F, 1e-5);
    EXPECT_FALSE(dial.isEditing());
    EXPECT_EQ(events.size(), 3U);
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

// Screen readers.

TEST_F(Dials, TellScreenReadersWhatTheyAre) {
    use({.units = Units::absoluteCents, .range = {0, 12800}, .defaultValue = 1200});
    auto& dial = placeDial();
    auto* const accessible = QAccessible::queryAccessibleInterface(&dial);
    EXPECT_EQ(accessible->role(), QAccessible::Slider);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Parameter"));
    EXPECT_EQ(accessible->text(QAccessible::Description), QStringLiteral("12.0"));
    auto& values = *accessible->valueInterface();
    EXPECT_NEAR(values.currentValue().toDouble(), 12, 1e-5);
    EXPECT_NEAR(values.minimumValue().toDouble(), 0, 1e-5);
    EXPECT_NEAR(values.maximumValue().toDouble(), 128, 1e-4);
    EXPECT_NEAR(values.minimumStepSize().toDouble(), 2.56, 1e-4);
    values.setCurrentValue(50.0);
    EXPECT_NEAR(values.currentValue().toDouble(), 50, 1e-5); // before the queue is drained
    EXPECT_EQ(value(), 5000);
    values.setCurrentValue(QStringLiteral("nonsense"));
    EXPECT_EQ(events.size(), 3U);
    auto& actions = *accessible->actionInterface();
    actions.doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_NEAR(value(), 5256, 0.01);
    actions.doAction(QAccessibleActionInterface::decreaseAction());
    EXPECT_EQ(events.size(), 9U);
    actions.doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(dial.isEditing());
    dial.setEnabled(false);
    EXPECT_FALSE(actions.actionNames().contains(QAccessibleActionInterface::increaseAction()));
    actions.doAction(QAccessibleActionInterface::increaseAction());
    values.setCurrentValue(1.0);
    EXPECT_EQ(events.size(), 9U);

    use({.units = Units::hertz, .range = {20, 20000}, .defaultValue = 440});
    auto* const label = QAccessible::queryAccessibleInterface(&placeLabel());
    EXPECT_EQ(label->role(), QAccessible::Button);
    EXPECT_EQ(label->text(QAccessible::Description), QStringLiteral("440.0 Hz"));
    label->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(static_cast<DialLabel*>(label->object())->isEditing());
}

} // namespace
} // namespace fernhorn
