#pragma once

#include "driftwood/controls/bezel_button_cell.hpp"
#include "driftwood/controls/style_followers.hpp"
#include "driftwood/controls/styled_cell.hpp"
#include "platform/ui/cells/cell_button.hpp"

#include <optional>

namespace driftwood {

/// Draws like a `StyledButtonCell`, but with insets of its own, and a push bezel that leaves room
/// around it.
class KestrelPushButtonCell
    : public StyledCell<KestrelPushButtonCell, BezelButtonCell, ButtonCellStyle> {
  public:
    using StyledCell::StyledCell;

    static constexpr core::Point bezelOffset{4, 5};
    static constexpr double bezelShrinking = 8; ///< in both directions

    [[nodiscard]] const core::EdgeInsets& imageEdgeInsets() const override {
        return imageEdgeInsets_;
    }
    [[nodiscard]] const core::EdgeInsets& titleEdgeInsets() const override {
        return titleEdgeInsets_;
    }
    [[nodiscard]] const core::EdgeInsets& edgeInsets() const override { return edgeInsets_; }

  protected:
    void drawBezel(const core::Rect& frame, const platform::CellCanvas& canvas) const override;

  private:
    // The content stays on the bezel.
    static constexpr core::EdgeInsets imageEdgeInsets_{};
    static constexpr core::EdgeInsets titleEdgeInsets_{};
    static constexpr core::EdgeInsets edgeInsets_{4, 4, 4, 4};
};

/// The general push button.
class KestrelPushButton : public platform::CellButton, public Selectable {
  public:
    explicit KestrelPushButton(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] bool isSelected() const override { return pushCell().isSelected(); }
    void setSelected(bool isSelected) override;

    /// In points; they take the place of the natural ones.
    [[nodiscard]] std::optional<double> fixedWidth() const { return fixedWidth_; }
    void setFixedWidth(std::optional<double> width);
    [[nodiscard]] std::optional<double> fixedHeight() const { return fixedHeight_; }
    void setFixedHeight(std::optional<double> height);

    [[nodiscard]] core::Size intrinsicContentSize() const override;

  protected:
    [[nodiscard]] QColor focusRingColor() const override;

  private:
    [[nodiscard]] const KestrelPushButtonCell& pushCell() const {
        return static_cast<const KestrelPushButtonCell&>(cell());
    }

    StyleFollower follower_;
    std::optional<double> fixedWidth_;
    std::optional<double> fixedHeight_;
};

} // namespace driftwood
