#pragma once

#include "driftwood/controls/bezel_button_cell.hpp"
#include "driftwood/controls/kit_control.hpp"
#include "driftwood/controls/styled_cell.hpp"
#include "driftwood/style/pop_up_cell_style.hpp"
#include "platform/controls/pop_up_button.hpp"

// All of this is for the main thread.
namespace driftwood {

/// What buttons with menus draw alike: the title in one line of fixed height and 10 points, 10 from
/// the leading edge, with room for the arrow at the other end; a label before it.
class MenuButtonCell : public BezelButtonCell {
  public:
    using BezelButtonCell::BezelButtonCell;

    /// Shown before the title, more quietly; empty for none.
    [[nodiscard]] const QString& label() const { return label_; }
    void setLabel(const QString& label) { label_ = label; }

    /// In the cell's whole frame. Empty without a title, or where only an image is shown.
    [[nodiscard]] core::Rect titleRect(const core::Rect& bounds, bool isRightToLeft) const override;
    [[nodiscard]] QFont titleFont() const override;
    [[nodiscard]] core::Size cellSize() const override { return sizeFor(title()); }
    /// What the button needs to show a title with its label.
    [[nodiscard]] core::Size sizeFor(const QString& title) const;

    [[nodiscard]] const core::EdgeInsets& imageEdgeInsets() const override {
        return controlStyle().imageEdgeInsets();
    }
    [[nodiscard]] const core::EdgeInsets& titleEdgeInsets() const override {
        return controlStyle().titleEdgeInsets();
    }
    [[nodiscard]] const core::EdgeInsets& edgeInsets() const override {
        return controlStyle().edgeInsets();
    }

  protected:
    void drawBezel(const core::Rect& frame, const platform::CellCanvas& canvas) const override;
    void drawInterior(const core::Rect& frame, const platform::CellCanvas& canvas) const override;
    void drawTitle(const QString& title, const core::Rect& frame,
                   const platform::CellCanvas& canvas) const override;

  private:
    [[nodiscard]] std::vector<platform::LineRun> runs(const QString& title) const;

    QString label_;
    mutable platform::LineText text_;
};

/// The menu button cell with the style of pop-up buttons.
class StyledPopUpButtonCell
    : public StyledCell<StyledPopUpButtonCell, MenuButtonCell, PopUpButtonCellStyle> {
  public:
    using StyledCell::StyledCell;
};

/// The same with the style of tool bars.
class ToolPopUpButtonCell
    : public StyledCell<ToolPopUpButtonCell, StyledPopUpButtonCell, ToolPopUpButtonCellStyle> {
  public:
    using StyledCell::StyledCell;
};

/// The menu button cell with the style of pop-down buttons.
class StyledPopDownButtonCell
    : public StyledCell<StyledPopDownButtonCell, MenuButtonCell, StyledPopDownButtonCellStyle> {
  public:
    using StyledCell::StyledCell;
};

/// A button that shows which item of its menu is selected, after a label where it has one. It is
/// exactly as tall as its bezel and as wide as its widest item wants it.
class StyledPopUpButton : public KitControl<platform::PopUpButton, StyledPopUpButtonCell> {
  public:
    explicit StyledPopUpButton(QWidget* parent = nullptr)
        : StyledPopUpButton(std::make_unique<StyledPopUpButtonCell>(), parent) {}

    [[nodiscard]] const QString& label() const { return styledCell().label(); }
    void setLabel(const QString& label);

    [[nodiscard]] core::EdgeInsets alignmentRectInsets() const override;
    [[nodiscard]] core::Size intrinsicContentSize() const override;
    [[nodiscard]] QString spokenName() const override;

  protected:
    StyledPopUpButton(std::unique_ptr<StyledPopUpButtonCell> cell, QWidget* parent);

    [[nodiscard]] double titleStart() const override;
};

/// The same among tools.
class ToolPopUpButton : public StyledPopUpButton {
  public:
    explicit ToolPopUpButton(QWidget* parent = nullptr)
        : StyledPopUpButton(std::make_unique<ToolPopUpButtonCell>(), parent) {}
};

/// A button that pulls down a menu of commands and keeps its title, whatever is chosen. Releasing
/// the mouse on it sends its action, and so does choosing an item without an action of its own.
class StyledPopDownButton : public KitControl<platform::PopUpButton, StyledPopDownButtonCell> {
  public:
    explicit StyledPopDownButton(const QString& title = {}, QWidget* parent = nullptr);

    [[nodiscard]] const QString& label() const { return styledCell().label(); }
    void setLabel(const QString& label);

    [[nodiscard]] core::EdgeInsets alignmentRectInsets() const override;
    [[nodiscard]] core::Size intrinsicContentSize() const override;

    bool eventFilter(QObject* object, QEvent* event) override;

  protected:
    bool mouseDown(int clickCount) override;
};

} // namespace driftwood
