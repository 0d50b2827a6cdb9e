#pragma once

#include "platform/controls/cell.hpp"
#include "platform/controls/control.hpp"

#include <QAccessible>
#include <QWidget>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

/// Who wants a control to look pressed. It does as long as one of them does.
enum class HighlightOwner : std::uint8_t {
    press = 1,  ///< the user's mouse or key, or a click by a program
    menu = 2,   ///< a menu that the control has opened
    program = 4 ///< anybody else
};

/// What assistive technology is told of a part of a control that is no widget itself: a segment, a
/// tick, an item.
struct AccessiblePart {
    QAccessible::Role role = QAccessible::NoRole;
    QString name = {};
    QString description = {};
    QAccessible::State state = {};
    QRect place = {}; ///< in the control
    /// What it does when it is used; empty: nothing.
    QString action = {};
};

/// A control that its cell measures and draws, with one target and one action. It brings what all
/// controls share: sizes and alignment, the focus ring, fading as a whole, the end of a press or
/// drag when the keyboard or the window goes elsewhere, and what screen readers are told. Derived
/// classes choose the cell and follow the mouse and the keys. Main thread; on another one the
/// program stops.
class CellControl : public QWidget, public Control {
    Q_OBJECT

  public:
    ~CellControl() override;

    /// After changing the cell itself, call `cellDidChange`.
    [[nodiscard]] Cell& cell() { return *cell_; }
    [[nodiscard]] const Cell& cell() const { return *cell_; }
    /// Repaints the control, and lays it out anew when its size may be another.
    void cellDidChange();

    [[nodiscard]] bool isHighlighted() const { return cell_->cellState().isHighlighted; }
    void setHighlighted(bool isHighlighted, HighlightOwner owner = HighlightOwner::program);

    /// How opaque the control is drawn as a whole, its focus ring included, from 0 to 1.
    [[nodiscard]] double alphaValue() const { return alphaValue_; }
    virtual void setAlphaValue(double alpha);

    /// From the widget's edges to the lines it is aligned by.
    [[nodiscard]] virtual core::EdgeInsets alignmentRectInsets() const { return {}; }
    /// The size between those lines.
    [[nodiscard]] virtual core::Size intrinsicContentSize() const { return cell_->cellSize(); }
    /// The widget's own size, so with the alignment insets around.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// The keyboard is here and the window is key.
    [[nodiscard]] bool showsFocusRing() const;
    /// True shows the ring without the keyboard: for pictures of a control.
    void setFocusRingPictured(bool isPictured);

    // For screen readers.

    [[nodiscard]] virtual QAccessible::Role accessibleRole() const { return QAccessible::Client; }
    /// What the control is called when nobody has given it an `accessibleName`.
    [[nodiscard]] virtual QString spokenName() const { return toolTip(); }
    /// Whether the control is selected; nothing for one that cannot be.
    [[nodiscard]] virtual std::optional<bool> accessibleSelection() const { return std::nullopt; }
    /// Its parts that are no widgets, in their order.
    [[nodiscard]] virtual std::vector<AccessiblePart> accessibleParts() const { return {}; }
    /// Does what the action of a part says.
    virtual void performAccessiblePart(int /*index*/) {}
    /// The menu that the control opens: the last of its children; null for none.
    [[nodiscard]] virtual QWidget* accessibleMenu() const { return nullptr; }
    /// The interface of the control: a `CellControlAccessible` or one derived from it. Owned by
    /// the caller.
    [[nodiscard]] virtual QAccessibleInterface* makeAccessible();

  protected:
    explicit CellControl(std::unique_ptr<Cell> cell, QWidget* parent = nullptr);

    /// Something has taken a press or a drag away: another window, the keyboard elsewhere, hiding,
    /// disabling, another grab; not a pop-up that borrows the keyboard. The last step of an event:
    /// it may destroy the control.
    virtual void cancelTracking() {}
    /// Whether what is going on began with a key: a pop-up ends that, too, since the key's release
    /// goes to the pop-up.
    [[nodiscard]] virtual bool isTrackingKey() const { return false; }
    virtual void highlightDidChange(bool /*isHighlighted*/) {}
    /// Screen readers may have to be told what has changed since `before`.
    virtual void cellStateDidChange(const CellState& /*before*/) {}
    [[nodiscard]] virtual QColor focusRingColor() const;

    void setCellState(const CellState& state);
    /// Puts another cell, which is not null, in the place of the one of now.
    void setCell(std::unique_ptr<Cell> cell);
    /// Tells screen readers that it is selected by now, or no longer.
    void accessibleSelectionDidChange();
    [[nodiscard]] core::Rect bounds() const;

    /// What derived classes do with an event: it is the current one (`currentEvent`), and this is
    /// the main thread.
    virtual bool handleEvent(QEvent* event);

    bool event(QEvent* event) final;
    void paintEvent(QPaintEvent* event) override;

  private:
    void paint(QPainter& painter) const;

    std::unique_ptr<Cell> cell_;
    float alphaValue_ = 1;
    std::uint8_t highlightOwners_ = 0;
    bool isRingPictured_ = false;
};

} // namespace platform
