// All buttons of the house are pressed in the same way.

#include "fernhorn/buttons/callback_buttons.hpp"
#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/cell_button.hpp"
#include "platform/controls/glyph_button.hpp"
#include "platform/testing/plain_button_style.hpp"
#include "platform/testing/window_testing.hpp"

#include <QDir>

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace fernhorn {
namespace {

class CellButton final : public platform::CellButton {
  public:
    explicit CellButton(QWidget* parent)
        : platform::CellButton(std::make_unique<platform::ButtonCell>(), parent) {}
};

/// A button of any kind, and whether it looks pressed.
struct Any {
    const char* name;
    QWidget* widget;
    std::function<bool()> isPressed;
};

class Presses : public testing::Test, public platform::ActionTarget {
  protected:
    ~Presses() override { retire(); }
    void SetUp() override {
        auto* const styled = new platform::Button(
            "A", std::make_shared<platform::testing::PlainButtonStyle>(), &window);
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

    void play(QWidget& button, char step) {
        using enum QEvent::Type;
        constexpr QPointF in(5, 5), out(5, 500);
        const struct {
            char step;
            QEvent::Type type;
            QPointF at;
            Qt::MouseButton button;
            Qt::MouseButtons held;
        } mouse[] = {{'d', MouseButtonPress, in, Qt::LeftButton, Qt::LeftButton},
                     {'D', MouseButtonPress, out, Qt::LeftButton, Qt::LeftButton},
                     {'2', MouseButtonDblClick, in, Qt::LeftButton, Qt::LeftButton},
                     {'u', MouseButtonRelease, in, Qt::LeftButton, {}},
                     {'U', MouseButtonRelease, out, Qt::LeftButton, {}},
                     {'o', MouseButtonPress, in, Qt::RightButton, Qt::RightButton},
                     {'O', MouseButtonRelease, in, Qt::RightButton, {}},
                     {'m', MouseMove, in, Qt::NoButton, Qt::LeftButton},
                     {'M', MouseMove, out, Qt::NoButton, Qt::LeftButton},
                     {'h', MouseMove, in, Qt::NoButton, {}}};
        for (const auto& [name, type, at, which, held] : mouse) {
            if (name == step) {
                platform::testing::sendMouse(button, type, at, which, held);
            }
        }
        const struct {
            char step;
            QEvent::Type type;
            Qt::Key key;
            Qt::KeyboardModifiers modifiers = {};
            bool isRepeat = false;
        } keys[] = {{'s', KeyPress, Qt::Key_Space},
                    {'S', KeyRelease, Qt::Key_Space},
                    {'r', KeyPress, Qt::Key_Return},
                    {'R', KeyRelease, Qt::Key_Return},
                    {'n', KeyPress, Qt::Key_Enter},
                    {'N', KeyRelease, Qt::Key_Enter},
                    {'c', KeyPress, Qt::Key_Space, Qt::ControlModifier},
                    {'C', KeyRelease, Qt::Key_Space, Qt::ControlModifier},
                    {'a', KeyPress, Qt::Key_Space, {}, true},
                    {'q', KeyPress, Qt::Key_A},
                    {'e', KeyPress, Qt::Key_Escape}};
        for (const auto& [name, type, key, modifiers, isRepeat] : keys) {
            if (name == step) {
                platform::testing::sendKey(button, type, key, modifiers, isRepeat);
            }
        }
        if (step == 'f') {
            window.setFocus();
        } else if (step == 'g') {
            platform::testing::sendEvent(button, QEvent::UngrabMouse);
        } else if (step == 'X' || step == 'x') {
            button.setEnabled(false);
            button.setEnabled(step == 'x');
        } else if (step == 'w') {
            QWidget other;
            platform::testing::showActive(other);
            other.hide();
            platform::testing::showActive(window);
        }
    }

    /// Plays d(own), u(p), m(oves) and 2, the second press of a double click, inside, D, U and M
    /// outside, the other button as o and O, h: a move with the button up; s and S Space down and
    /// up, r and R Return, n and N Enter, c and C Space with Control, a repeat of Space, another
    /// key, e(scape), f(ocus away), g(rab taken), X disabled, x enabled again, w(indow left). Notes
    /// the clicks of each.
    std::string play(QWidget& button, std::string_view steps) {
        std::string result;
        for (const char step : steps) {
            clicks = 0;
            play(button, step);
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
        {"dd", "00", true}, {"dudu", "0101"}, {"du2u", "0101"}, {"dMu", "001"},
        {"DU", "00"},       {"dhu", "000"}, // the release went unheard
        {"dhdu", "0001"},   {"dMhu", "0000"}, {"h", "0"},       {"oO", "00"},
        {"doOu", "0001"},   {"sS", "01"},     {"s", "0", true}, {"saaS", "0001"},
        {"a", "0"},         {"rR", "01"},     {"nN", "01"},     {"r", "0", true},
        {"R", "0"}, // went down elsewhere
        {"rS", "00", true}, {"sduS", "0001"}, {"shS", "001"},   {"dsSu", "0001"},
        {"q", "0"},         {"cC", "00"}, // somebody's shortcut
        {"sC", "01"},                     // a release is a release
        {"sCdu", "0101"},   {"seS", "000"},   {"deu", "000"},   {"deMmu", "00000"},
        {"sfS", "000"},     {"dgu", "000"},   {"sxS", "000"},   {"dxu", "000"},
        {"dwu", "000"},     {"Xdu", "000"},   {"XsS", "000"},   {"dXu", "000"},
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
