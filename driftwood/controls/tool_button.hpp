#pragma once

#include "driftwood/controls/styled_button.hpp"
#include "platform/controls/responders.hpp"

#include <QBasicTimer>

#include <chrono>
#include <optional>
#include <type_traits>

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

/// A tool with a second action: for a press that is held, and for a secondary click. Main thread.
class ToolButton : public StyledButton {
  public:
    /// A press counts as held after the interval; that of the desktop for double clicks unless told
    /// otherwise.
    explicit ToolButton(const QString& title, QWidget* parent = nullptr,
                        std::optional<std::chrono::milliseconds> holdInterval = std::nullopt)
        : StyledButton(std::make_unique<ToolButtonCell>(title), parent),
          holdInterval_(holdInterval) {}

    [[nodiscard]] bool showMoreIcon() const { return toolCell().showMoreIcon(); }
    void setShowMoreIcon(bool shows);

    /// An empty action takes it away. It is not sent when its target is gone.
    void setSecondaryAction(Action action, platform::ActionTarget& target);
    /// The same with an operation of the target's class; when the target is gone it goes through
    /// the application as if there were none.
    template<class Target>
    void setSecondaryAction(void (Target::*operation)(Control&),
                            std::type_identity_t<Target>& target) {
        setSecondaryAction(operation);
        secondaryTarget_ = target.weakTarget();
    }
    /// Without a target: it is sent through the application, to the first `Target` among the
    /// `platform::responders` of the button; to nobody when there is none.
    template<class Target>
    void setSecondaryAction(void (Target::*operation)(Control&)) {
        setUntargetedAction(
            [operation](platform::ActionTarget& to, Control& sender) {
                (dynamic_cast<Target&>(to).*operation)(sender);
            },
            [](QWidget& sender) -> platform::ActionTarget* {
                return platform::firstResponder<Target>(sender);
            });
    }
    [[nodiscard]] platform::ActionTarget* secondaryTarget() const {
        return secondaryTarget_.lock().get();
    }

    [[nodiscard]] bool hasSecondaryClick() const override { return secondaryAction_ != nullptr; }
    bool performSecondaryClick() override;

  protected:
    bool mouseDown(int clickCount) override;
    [[nodiscard]] bool stopsAtControlClick() const override { return true; }
    void trackingDidChange(bool isTracking) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    using Finder = platform::ActionTarget* (*)(QWidget& sender);
    void setUntargetedAction(Action action, Finder finder);
    [[nodiscard]] ToolButtonCell& toolCell() const {
        return static_cast<ToolButtonCell&>(styledCell());
    }

    Action secondaryAction_;
    std::weak_ptr<platform::ActionTarget> secondaryTarget_;
    Finder secondaryFinder_ = nullptr;
    std::optional<std::chrono::milliseconds> holdInterval_;
    QBasicTimer hold_;
};

} // namespace driftwood
