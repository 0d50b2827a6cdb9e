#pragma once

#include "driftwood/bridges/style_follower.hpp"
#include "driftwood/bridges/styled_class.hpp"
#include "driftwood/style/styled_control_state.hpp"
#include "driftwood/style/window_style.hpp"
#include "driftwood/text/popover_geometry.hpp"
#include "platform/controls/text_field.hpp"

#include <QPointer>

#include <memory>
#include <optional>
#include <vector>

// All of this is for the main thread.
namespace driftwood {

/// A message in a bubble with an arrow, beside the view that it is about. It goes with the view,
/// wherever that is moved or scrolled, is out of sight where the view is or its window is not key,
/// never takes the keyboard or the mouse, and closes only when it is told to, or with its view.
class SimpleTextViewPopover final : public QWidget,
                                    public StyledClass<SimpleTextViewPopover, PopoverStyle> {
    Q_OBJECT

  public:
    SimpleTextViewPopover();

    // Not the toolkit's.
    using StyledClass::style;

    /// After changing its text, call `sizeToFit`.
    [[nodiscard]] platform::TextField& contentTextField() { return *contentTextField_; }
    /// Null while it is closed.
    [[nodiscard]] QWidget* currentPositioningView() const { return positioningView_; }
    [[nodiscard]] StyledControlState controlState() const { return controlState_; }
    /// Whether it comes by and by; only where the desktop can show that.
    [[nodiscard]] bool animates() const { return animates_; }
    void setAnimates(bool animates) { animates_ = animates; }

    /// From showing to closing, also while it is out of sight.
    [[nodiscard]] bool isShown() const { return positioningView_ != nullptr; }
    /// Within the bubble, text and padding.
    [[nodiscard]] core::Size contentSize() const { return contentSize_; }
    /// The size that the text and the style's padding need; in a shown one at once.
    void sizeToFit();
    /// The rectangle is in the coordinates of the view. A screen reader hears the text.
    void showRelativeToRect(const QRect& rect, QWidget& view, RectEdge preferredEdge);
    void close();

    /// The bubble as a child of a view, for pictures of it: it has to be moved and shown.
    void picture(QWidget& in);

    bool eventFilter(QObject* object, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void followStyle();
    void follow(QWidget* view);
    void place();
    void arrange(const PopoverPlacement& placement);

    platform::TextField* contentTextField_; // a child
    StyledControlState controlState_ = StyledControlState::default_;
    core::Size contentSize_;
    QPointer<QWidget> positioningView_;
    QRect positioningRect_; // in that view
    RectEdge preferredEdge_ = RectEdge::maxY;
    PopoverPlacement placement_;
    std::vector<QPointer<QWidget>> followed_; // the view and those that it lies in
    bool animates_ = true;
    bool isPictured_ = false;
    StyleFollower follower_;
};

/// Shows messages in a popover of its own.
class SimpleTextViewPopoverController {
  public:
    /// Made when it is first asked for.
    [[nodiscard]] SimpleTextViewPopover& popover();
    [[nodiscard]] bool isShown() const { return popover_ != nullptr && popover_->isShown(); }

    void showMessage(const std::optional<QString>& message, QWidget& relativeTo, RectEdge edge);
    /// The sender does not count.
    void closePopover(QObject* sender = nullptr);

    /// The rule of validating fields: a message shows while the field has the keyboard, whether
    /// the text is valid or not; one that is shown already changes in its place.
    void update(const std::optional<QString>& message, bool isFocused, QWidget& field);

  private:
    std::unique_ptr<SimpleTextViewPopover> popover_;
};

} // namespace driftwood
