#include "platform/controls/cell_button.hpp"
#include "platform/controls/cell_control_accessible.hpp"
#include "platform/testing/window_testing.hpp"

#include <QMenu>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace platform {
namespace {

using testing::showActive;

/// Two squares that overlap, in the colour of template images.
class SquaresCell final : public Cell {
  public:
    [[nodiscard]] core::Size cellSize() const override { return {30, 20}; }

  protected:
    void drawInterior(const core::Rect& /*frame*/, const CellCanvas& canvas) const override {
        canvas.painter.fillRect(QRectF(0, 0, 20, 20), canvas.controlTextColor);
        canvas.painter.fillRect(QRectF(10, 0, 20, 20), canvas.controlTextColor);
    }
};

/// Two parts side by side, and something that goes on until it is cancelled.
class Squares final : public CellControl {
  public:
    explicit Squares(QWidget* parent = nullptr)
        : CellControl(std::make_unique<SquaresCell>(), parent) {}

    [[nodiscard]] core::EdgeInsets alignmentRectInsets() const override { return {1, 2, 3, 4}; }
    [[nodiscard]] std::vector<AccessiblePart> accessibleParts() const override {
        return {{.role = QAccessible::RadioButton, .name = "Left", .place = {0, 0, 10, 20}},
                {.role = QAccessible::RadioButton,
                 .name = "Right",
                 .place = {10, 0, 10, 20},
                 .action = QAccessibleActionInterface::pressAction()}};
    }
    void performAccessiblePart(int index) override { performed = index; }
    [[nodiscard]] bool isTrackingKey() const override { return isKey; }
    void cancelTracking() override { ++cancelled; }

    int performed = -1;
    int cancelled = 0;
    bool isKey = false;
};

TEST(CellControls, FadeAsOne) {
    Squares squares;
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::ButtonText, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::red);
    squares.setPalette(palette);
    squares.resize(30, 20);
    squares.setAlphaValue(0.5);
    for (const bool isEnabled : {true, false}) { // the tint is that of the active window
        squares.setEnabled(isEnabled);
        for (const double scale : {1.0, 1.25, 2.0}) {
            QImage picture((QSizeF(30, 20) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
            picture.setDevicePixelRatio(scale);
            picture.fill(Qt::black);
            QPainter painter(&picture);
            squares.render(&painter, {}, {}, QWidget::DrawChildren);
            painter.end();
            for (const double x : {5.0, 15.0, 25.0}) { // in the middle both squares lie
                const QColor color = picture.pixelColor(int(x * scale), int(10 * scale));
                EXPECT_NEAR(color.red(), 128, 1) << x << " at " << scale;
                EXPECT_NEAR(color.green(), 128, 1);
            }
        }
    }
    EXPECT_EQ(squares.sizeHint(), QSize(36, 24));
}

TEST(CellControls, WhatTakesTheKeyboardOrTheWindowEndsTracking) {
    const struct {
        std::function<void(QWidget&)> happens;
        int byMouse, byKey;
    } cases[] = {
        {[](QWidget& control) { control.clearFocus(); }, 1, 1},
        {[](QWidget& control) { control.hide(); }, 1, 1},
        {[](QWidget& control) { control.setEnabled(false); }, 1, 1},
        {[](QWidget&) {
             QWidget other;
             showActive(other);
         },
         1, 1},
        {[](QWidget& control) { testing::sendEvent(control, QEvent::UngrabMouse); }, 1, 1},
        {[](QWidget& control) { // borrows the keyboard, and gets a key's release
             QMenu menu;
             menu.addAction("Item");
             menu.popup(control.mapToGlobal(QPoint()));
             testing::runFor(20);
             menu.close();
         },
         0, 1},
    };
    int number = 0;
    for (const auto& [happens, byMouse, byKey] : cases) {
        for (const bool isKey : {false, true}) {
            QWidget window;
            Squares squares(&window);
            window.resize(60, 60);
            showActive(window);
            squares.setFocus();
            squares.isKey = isKey;
            squares.cancelled = 0;
            happens(squares);
            EXPECT_EQ(squares.cancelled > 0, (isKey ? byKey : byMouse) > 0) << number;
        }
        ++number;
    }
}

TEST(CellControls, AreHighlightedAsLongAsSomebodyWantsIt) {
    Squares squares;
    squares.setHighlighted(true, HighlightOwner::press);
    squares.setHighlighted(true, HighlightOwner::menu);
    squares.setHighlighted(false, HighlightOwner::press);
    EXPECT_TRUE(squares.isHighlighted());
    squares.setHighlighted(false, HighlightOwner::menu);
    EXPECT_FALSE(squares.isHighlighted());
}

TEST(CellControls, ShowScreenReadersTheirParts) {
    QWidget window;
    auto* const squares = new Squares(&window);
    squares->setGeometry(20, 20, 20, 20);
    squares->setAccessibleName("Side");
    showActive(window);
    auto* const spoken = QAccessible::queryAccessibleInterface(squares);
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->text(QAccessible::Name), "Side");
    ASSERT_EQ(spoken->childCount(), 2);
    auto* const right = spoken->child(1);
    ASSERT_NE(right, nullptr);
    EXPECT_EQ(right, spoken->child(1)); // one and the same
    EXPECT_EQ(right->text(QAccessible::Name), "Right");
    EXPECT_EQ(right->role(), QAccessible::RadioButton);
    EXPECT_EQ(right->parent(), spoken);
    EXPECT_EQ(spoken->indexOfChild(right), 1);
    const QPoint inRight = squares->mapToGlobal(QPoint(15, 5));
    EXPECT_TRUE(right->rect().contains(inRight));
    EXPECT_EQ(spoken->childAt(inRight.x(), inRight.y()), right);
    right->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(squares->performed, 1);
    squares->setEnabled(false);
    EXPECT_TRUE(right->state().disabled);
    EXPECT_TRUE(right->actionInterface()->actionNames().isEmpty());
    const QAccessible::Id id = QAccessible::uniqueId(right);
    delete squares;
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

TEST(CellControlsDeathTest, AreForTheMainThread) {
    Squares squares;
    const SquaresCell cell;
    QImage picture(10, 10, QImage::Format_ARGB32_Premultiplied);
    const std::function<void()> calls[] = {
        [&] { (void)squares.sizeHint(); },
        [&] { squares.setHighlighted(true); },
        [&] { squares.setAlphaValue(0.5); },
        [&] { squares.cellDidChange(); },
        [&] {
            QEvent event(QEvent::FocusIn);
            static_cast<QObject&>(squares).event(&event);
        },
        [&] {
            QPainter painter(&picture);
            cell.draw({}, {painter, Qt::white});
        },
    };
    for (const auto& call : calls) {
        EXPECT_DEATH(std::thread(call).join(), "is for the main thread, and was called on another");
    }
}

} // namespace
} // namespace platform
