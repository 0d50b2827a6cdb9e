#pragma once

#include "driftwood/controls/bezel_button_cell.hpp"
#include "driftwood/controls/kit_control.hpp"
#include "driftwood/controls/styled_cell.hpp"
#include "platform/controls/cell_button.hpp"

#include <optional>

namespace driftwood {

/// Draws like a `StyledButtonCell`, but with insets of its own, and a push bezel that leaves room
/// around it. Main thread.
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

/// The general push button. Main thread.
class KestrelPushButton : public KitControl<platform::CellButton, KestrelPushButtonCell> {
  public:
    explicit KestrelPushButton(const QString& title, QWidget* parent = nullptr)
        : KitControl(std::make_unique<KestrelPushButtonCell>(title), parent) {}

    /// In points; takes the place of the natural height.
    [[nodiscard]] std::optional<double> fixedHeight() const { return fixedHeight_; }
    void setFixedHeight(std::optional<double> height);

    /// Those of the push bezel, which leaves room around it.
    [[nodiscard]] core::EdgeInsets alignmentRectInsets() const override;
    [[nodiscard]] core::Size intrinsicContentSize() const override;

  private:
    std::optional<double> fixedHeight_;
};

} // namespace driftwood
