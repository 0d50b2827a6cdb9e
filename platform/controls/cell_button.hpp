#pragma once

#include "platform/controls/button_cell.hpp"
#include "platform/controls/cell_control.hpp"
#include "platform/controls/press_input.hpp"

class QMouseEvent;

namespace platform {

/// A secondary click: the right button, or the left one with Control held.
[[nodiscard]] bool isSecondaryClick(const QMouseEvent& event);

/// A button that its cell measures and draws. A click by mouse or key sends its action; a button
/// that shows its state changes it first. Clicks leave the keyboard where it is; Tab brings it.
/// Derived classes choose the cell and refine single steps of the mouse's handling. Main thread.
class CellButton : public CellControl {
    Q_OBJECT

  public:
    [[nodiscard]] ButtonCell& cell() { return static_cast<ButtonCell&>(CellControl::cell()); }
    [[nodiscard]] const ButtonCell& cell() const {
        return static_cast<const ButtonCell&>(CellControl::cell());
    }

    [[nodiscard]] const QString& title() const { return cell().title(); }
    void setTitle(const QString& title);
    /// The image outlives the button; null shows none.
    void setImage(const ImageAsset* image, ImagePosition position = ImagePosition::imageLeading);
    void setBordered(bool isBordered);

    [[nodiscard]] StateValue state() const { return cell().cellState().state; }
    /// Sends no action.
    void setState(StateValue state);
    /// Whether the button can be on and looks like it; a push button does not.
    void setShowsState(bool showsState);

    /// Does what a click does, and shows the button pressed for a moment. A disabled one does not.
    void performClick();
    /// Does what a secondary click does; false when there is nothing that it does.
    virtual bool performSecondaryClick() { return false; }
    [[nodiscard]] virtual bool hasSecondaryClick() const { return false; }

    [[nodiscard]] QAccessible::Role accessibleRole() const override;
    [[nodiscard]] QString spokenName() const override;
    [[nodiscard]] QAccessibleInterface* makeAccessible() override;

  protected:
    explicit CellButton(std::unique_ptr<ButtonCell> cell, QWidget* parent = nullptr);

    /// Called once, when all constructors have run, before the button is first measured or shown:
    /// for what a class of buttons begins with. Cells never paint a pressed look of their own that
    /// would have to be switched off here.
    virtual void setupButton() {}
    /// A left press inside of the button, with 1 for the first click of a series; the button is
    /// highlighted. True: it is dealt with, and no click follows.
    virtual bool mouseDown(int /*clickCount*/) { return false; }
    /// Whether a click with Control is no click even when there is no secondary one.
    [[nodiscard]] virtual bool stopsAtControlClick() const { return false; }
    /// A press by mouse or key has begun or ended; in between it may leave the button.
    virtual void trackingDidChange(bool /*isTracking*/) {}

    /// The modifier keys of the click that is being dealt with.
    [[nodiscard]] Qt::KeyboardModifiers clickModifiers() const { return clickModifiers_; }
    /// Ends a press without a click.
    void cancelPress();

    void cancelTracking() override { cancelPress(); }
    [[nodiscard]] bool isTrackingKey() const override { return input_.press().isByKey(); }
    void cellStateDidChange(const CellState& before) override;
    bool handleEvent(QEvent* event) override;

  private:
    void follow(PressStep step);
    void click();
    void press(const QMouseEvent& event, int clickCount);
    bool take(const QEvent& event);

    PressInput input_;
    Qt::KeyboardModifiers clickModifiers_;
};

} // namespace platform
