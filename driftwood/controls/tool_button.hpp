#pragma once

#include "driftwood/controls/styled_button.hpp"

#include <QBasicTimer>

#include <chrono>

namespace driftwood {

/// Marks a tool that has more behind it.
class ToolButtonCell : public StyledCell<ToolButtonCell, StyledButtonCell, ToolButtonCellStyle> {
  public:
    using StyledCell::StyledCell;

    [[nodiscard]] bool showMoreIcon() const { return showMoreIcon_; }
    void setShowMoreIcon(bool shows) { showMoreIcon_ = shows; }

  protected:
    void drawBezel(const core::Rect& frame, const platform::CellCanvas& canvas) const override;

  private:
    bool showMoreIcon_ = false;
};

/// A tool with a second action: for a press that is held, and for a secondary click.
class ToolButton : public StyledButton {
  public:
    explicit ToolButton(const QString& title, QWidget* parent = nullptr)
        : StyledButton(std::make_unique<ToolButtonCell>(title), parent) {}

    [[nodiscard]] bool showMoreIcon() const { return toolCell().showMoreIcon(); }
    void setShowMoreIcon(bool shows);

    /// An empty action takes it away. It is not sent when its target is gone.
    void setSecondaryAction(Action action, platform::ActionTarget& target);
    [[nodiscard]] platform::ActionTarget* secondaryTarget() const {
        return secondaryTarget_.lock().get();
    }

    /// How long a press lasts until it counts as held; the desktop's interval for double clicks
    /// unless told otherwise.
    void setHoldInterval(std::chrono::milliseconds interval) { holdInterval_ = interval; }

    [[nodiscard]] bool hasSecondaryClick() const override { return secondaryAction_ != nullptr; }
    bool performSecondaryClick() override;

  protected:
    bool mouseDown(int clickCount) override;
    void trackingDidChange(bool isTracking) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    [[nodiscard]] ToolButtonCell& toolCell() const {
        return static_cast<ToolButtonCell&>(styledCell());
    }

    Action secondaryAction_;
    std::weak_ptr<platform::ActionTarget> secondaryTarget_;
    std::optional<std::chrono::milliseconds> holdInterval_;
    QBasicTimer hold_;
};

} // namespace driftwood
