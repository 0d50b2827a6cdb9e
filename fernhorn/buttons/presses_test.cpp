// All buttons of the house are pressed in the same way.

#include "fernhorn/buttons/callback_buttons.hpp"
#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/button.hpp"
#include "platform/controls/cell_button.hpp"
#include "platform/controls/glyph_button.hpp"
#include "platform/testing/window_testing.hpp"

#include <QDir>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace fernhorn {
namespace {

class PlainStyle final : public platform::ButtonStyle {
    [[nodiscard]] QFont font() const override { return {}; }
    [[nodiscard]] double height() const override { return 20; }
    void paint(QPainter&, const QRectF&, const platform::ButtonConfiguration&) const override {}
};

class CellButton final : public platform::CellButton {
  public:
    explicit CellButton(QWidget* parent)
        : platform::CellButton(std::make_unique<platform::ButtonCell>(), parent) {}
};

/// A button of any kind, what it counts, and whether it looks pressed.
struct Any {
    const char* name;
    QWidget* widget;
    std::function<bool()> isPressed;
};

class Presses : public testing::Test, public platform::ActionTarget {
  protected:
    ~Presses() override { retire(); }
    void SetUp() override {
        auto* const styled = new platform::Button("A", std::make_shared<PlainStyle>(), &window);
        auto* const glyph = new platform::GlyphButton("window-close", "A", assets, &window);
        for (QAbstractButton* const button :
             {static_cast<QAbstractButton*>(styled), static_cast<QAbstractButton*>(glyph)}) {
            QObject::connect(button, &QAbstractButton::clicked, [this] { ++clicks; });
        }
        auto* const cell = new CellButton(&window);
        cell->setAction([this](ActionTarget&, platform::Control&) { ++clicks; }, *this);
        auto* const press = new ChaosButton(
            ChaosButtonColor::yellow, "A", [this] { ++clicks; }, {40, 20}, &window);
        buttons = {Any{"styled", styled, [=] { return styled->isDown(); }},
                   Any{"glyph", glyph, [=] { return glyph->isDown(); }},
                   Any{"cell", cell, [=] { return cell->isHighlighted(); }},
                   Any{"image", press, [=] { return press->isPressed(); }}};
        window.resize(60, 200);
        int y = 10;
        for (const Any& button : buttons) {
            button.widget->setGeometry(10, std::exchange(y, y + 40), 40, 20);
        }
        platform::testing::showActive(window);
    }

    /// Plays d(own), u(p) and m(oves) inside, D, U and M outside, h: a move with the button up;
    /// s and S Space down and up, r and R Return, c and C either with Control, a repeat of Space,
    /// e(scape), f(ocus away), g(rab taken), x(disabled and enabled again), w(indow left). Notes
    /// clicks.
    std::string play(QWidget& button, std::string_view steps) {
        std::string result;
        for (const char step : steps) {
            clicks = 0;
            const auto mouse = [&](QEvent::Type type, QPointF at, Qt::MouseButton which,
                                   Qt::MouseButtons held) {
                QMouseEvent event(type, at, button.mapToGlobal(at), which, held, {});
                QCoreApplication::sendEvent(&button, &event);
            };
            const auto key = [&](QEvent::Type type, int which, Qt::KeyboardModifiers modifiers = {},
                                 bool isRepeat = false) {
                QKeyEvent event(type, which, modifiers, {}, isRepeat);
                QCoreApplication::sendEvent(&button, &event);
            };
            const QPointF in(5, 5);
            const QPointF out(5, 500);
            switch (step) {
            case 'd':
            case 'D':
                mouse(QEvent::MouseButtonPress, step == 'd' ? in : out, Qt::LeftButton,
                      Qt::LeftButton);
                break;
            case 'u':
            case 'U':
                mouse(QEvent::MouseButtonRelease, step == 'u' ? in : out, Qt::LeftButton, {});
                break;
            case 'm':
            case 'M':
                mouse(QEvent::MouseMove, step == 'm' ? in : out, Qt::NoButton, Qt::LeftButton);
                break;
            case 'h':
                mouse(QEvent::MouseMove, in, Qt::NoButton, Qt::NoButton);
                break;
            case 's':
            case 'S':
                key(step == 's' ? QEvent::KeyPress : QEvent::KeyRelease, Qt::Key_Space);
                break;
            case 'r':
            case 'R':
                key(step == 'r' ? QEvent::KeyPress : QEvent::KeyRelease, Qt::Key_Return);
                break;
            case 'c':
            case 'C':
                key(step == 'c' ? QEvent::KeyPress : QEvent::KeyRelease, Qt::Key_Space,
                    Qt::ControlModifier);
                break;
            case 'a':
                key(QEvent::KeyPress, Qt::Key_Space, {}, true);
                break;
            case 'e':
                key(QEvent::KeyPress, Qt::Key_Escape);
                break;
            case 'f':
                window.setFocus();
                break;
            case 'g': {
                QEvent event(QEvent::UngrabMouse);
                QCoreApplication::sendEvent(&button, &event);
                break;
            }
            case 'x':
                button.setEnabled(false);
                button.setEnabled(true);
                break;
            default: {
                QWidget other;
                platform::testing::showActive(other);
                other.hide();
                platform::testing::showActive(window);
            }
            }
            result += static_cast<char>('0' + clicks);
        }
        return result;
    }

    const platform::AssetCatalog assets{QDir()};
    QWidget window;
    std::array<Any, 4> buttons;
    int clicks = 0;
};

TEST_F(Presses, AreTheSameForAllButtons) {
    const struct {
        const char *steps, *clicks;
        bool isPressed = false;
    } cases[] = {
        {"du", "01"},       {"d", "0", true}, {"dMmu", "0001"}, {"dMUdu", "00001"},
        {"DU", "00"},       {"dhu", "000"}, // the release went unheard
        {"dhdu", "0001"},   {"sS", "01"},     {"s", "0", true}, {"saaS", "0001"},
        {"a", "0"},         {"rR", "01"},     {"r", "0", true}, {"R", "0"}, // went down elsewhere
        {"rS", "00", true}, {"cC", "00"},                                   // somebody's shortcut
        {"sC", "01"}, // a release is a release
        {"sCdu", "0101"},   {"seS", "000"},   {"deu", "000"},   {"sfS", "000"},
        {"dgu", "000"},     {"sxS", "000"},   {"dxu", "000"},   {"dwu", "000"},
    };
    for (const Any& button : buttons) {
        for (const auto& [steps, expected, isPressed] : cases) {
            button.widget->setFocus(Qt::TabFocusReason);
            EXPECT_EQ(play(*button.widget, steps), expected) << button.name << ' ' << steps;
            EXPECT_EQ(button.isPressed(), isPressed) << button.name << ' ' << steps;
            play(*button.widget, "x");
            EXPECT_FALSE(button.isPressed());
        }
    }
}

} // namespace
} // namespace fernhorn
