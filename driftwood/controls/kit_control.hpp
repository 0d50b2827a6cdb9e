#pragma once

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "driftwood/bridges/style_follower.hpp"
#include "driftwood/style/styled_control.hpp"
#include "platform/controls/cell_control.hpp"

#include <concepts>
#include <memory>
#include <optional>

namespace driftwood {

/// What all controls of the kit share, whatever they are: `Base` is the widget around a cell, and
/// `Cell` the class of that cell, a styled one. The control follows the style of its cell, has the
/// style's focus ring, and can have a fixed width. Main thread.
template<std::derived_from<platform::CellControl> Base, std::derived_from<StyledControl> Cell>
class BasicKitControl : public Base {
  public:
    [[nodiscard]] Cell& styledCell() const { return cell_; }

    /// In points; takes the place of the natural width.
    [[nodiscard]] std::optional<double> fixedWidth() const { return fixedWidth_; }
    void setFixedWidth(std::optional<double> width) {
        if (width != fixedWidth_) {
            fixedWidth_ = width;
            this->updateGeometry();
        }
    }

  protected:
    /// `rest` is what the widget's class takes beside the cell: the parent, as a rule.
    template<class... Rest>
    explicit BasicKitControl(std::unique_ptr<Cell> cell, Rest... rest)
        : Base(std::move(cell), rest...),
          cell_(static_cast<Cell&>(this->cell())),
          follower_(*this, cell_.controlStyle()) {}

    [[nodiscard]] QColor focusRingColor() const override {
        return toQColor(cell_.styleFocusRingColor());
    }
    /// The size of the bezel's image for the state of now; empty without one.
    [[nodiscard]] core::Size bezelImageSize() const {
        const Image& bezel = cell_.styleBezelImage();
        return bezel ? bezel->size() : core::Size();
    }

  private:
    Cell& cell_;
    StyleFollower follower_;
    std::optional<double> fixedWidth_;
};

/// A control of the kit. See `BasicKitControl`.
template<class Base, class Cell>
class KitControl : public BasicKitControl<Base, Cell> {
    using BasicKitControl<Base, Cell>::BasicKitControl;
};

/// One whose cell can be selected is selected as its cell is.
template<class Base, std::derived_from<Selectable> Cell>
class KitControl<Base, Cell> : public BasicKitControl<Base, Cell>, public Selectable {
  public:
    [[nodiscard]] bool isSelected() const override { return this->styledCell().isSelected(); }
    void setSelected(bool isSelected) override {
        if (isSelected != this->isSelected()) {
            this->styledCell().setSelected(isSelected);
            this->update();
            this->accessibleSelectionDidChange();
        }
    }
    [[nodiscard]] std::optional<bool> accessibleSelection() const override { return isSelected(); }

  protected:
    using BasicKitControl<Base, Cell>::BasicKitControl;
};

} // namespace driftwood
