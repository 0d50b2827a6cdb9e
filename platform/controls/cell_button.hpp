#pragma once

#include "platform/ui/cells/button_cell.hpp"
#include "platform/ui/cells/control.hpp"
#include "platform/ui/cells/press_tracker.hpp"

#include <QAccessible>
#include <QWidget>

#include <memory>

class QMouseEvent;

namespace platform {

/// A secondary click: the right button, or the left one with Control held.
[[nodiscard]] bool isSecondaryClick(const QMouseEvent& event);

/// A button that its cell measures and draws. A click, Space or Return sends its action; a button
/// that shows its state changes it first. Clicks leave the keyboard where it is; Tab brings it.
/// Derived classes choose the cell and refine single steps of the mouse's handling. Main thread.
class CellButton : public QWidget, public Control {
    Q_OBJECT

  public:
    ~CellButton() override;

    /// After changing the cell itself, call `cellDidChange`.
    [[nodiscard]] ButtonCell& cell() { return *cell_; }
    [[nodiscard]] const ButtonCell& cell() const { return *cell_; }
    /// Repaints the button, and lays it out anew when its size may be another.
    void cellDidChange();

    [[nodiscard]] const QString& title() const { return cell_->title(); }
    void setTitle(const QString& title);
    /// The image outlives the button; null shows none.
    void setImage(const ImageAsset* image, ImagePosition position = ImagePosition::imageLeading);
    void setBordered(bool isBordered);

    [[nodiscard]] StateValue state() const { return cell_->cellState().state; }
    /// Sends no action.
    void setState(StateValue state);
    /// Whether the button can be on and looks like it; a push button does not.
    void setShowsState(bool showsState);
    [[nodiscard]] bool isHighlighted() const { return cell_->cellState().isHighlighted; }
    void setHighlighted(bool isHighlighted);

    /// How opaque the button is drawn, from 0 to 1.
    [[nodiscard]] double alphaValue() const { return alphaValue_; }
    virtual void setAlphaValue(double alpha);

    /// Does what a click does, and shows the button pressed for a moment. A disabled one does not.
    void performClick();
    /// Does what a secondary click does; false when there is nothing that it does.
    virtual bool performSecondaryClick() { return false; }
    [[nodiscard]] virtual bool hasSecondaryClick() const { return false; }

    /// From the widget's edges to the lines it is aligned by.
    [[nodiscard]] virtual core::EdgeInsets alignmentRectInsets() const { return {}; }
    /// The size between those lines.
    [[nodiscard]] virtual core::Size intrinsicContentSize() const { return cell_->cellSize(); }
    /// The widget's own size, so with the alignment insets around.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// The keyboard is here and the window is key.
    [[nodiscard]] bool showsFocusRing() const;

    [[nodiscard]] virtual QAccessible::Role accessibleRole() const;

  protected:
    explicit CellButton(std::unique_ptr<ButtonCell> cell, QWidget* parent = nullptr);

    /// A left press inside of the button, with 1 for the first click of a series; the button is
    /// highlighted. True: it is dealt with, and no click follows.
    virtual bool mouseDown(int /*clickCount*/) { return false; }
    /// A press by mouse or key has begun or ended; in between it may leave the button.
    virtual void trackingDidChange(bool /*isTracking*/) {}
    virtual void highlightDidChange(bool /*isHighlighted*/) {}
    [[nodiscard]] virtual QColor focusRingColor() const;

    /// The modifier keys of the click that is being dealt with.
    [[nodiscard]] Qt::KeyboardModifiers clickModifiers() const { return clickModifiers_; }
    /// Ends a press without a click.
    void cancelPress();
    [[nodiscard]] core::Rect bounds() const;

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void follow(PressTracker::Result result);
    void click();
    void flashAndClick();
    void press(const QMouseEvent& event, int clickCount);
    bool handleKey(QEvent& event);
    void setCellState(const CellState& state);

    std::unique_ptr<ButtonCell> cell_;
    PressTracker tracker_;
    bool wasTracking_ = false;
    Qt::KeyboardModifiers clickModifiers_;
    double alphaValue_ = 1;
};

} // namespace platform
