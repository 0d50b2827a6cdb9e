#pragma once

#include "driftwood/controls/tracking_slider.hpp"
#include "driftwood/text/validating_text_field.hpp"

// All of this is for the main thread.
namespace driftwood {

/// A value in a list of properties: a small text field on a ground of its own, with an icon before
/// it that changes the value where it is dragged, or without. Its message shows as that of a
/// `ValidatingTextField` does.
///
/// The icon moves the field's number and sends the field's action with every step and once more at
/// the end of a drag, also over a text that is just being typed. It is dim where the field holds no
/// number: an expression is its owner's. Give it its range and increment before the first value:
/// it keeps what it moves within them, 0 to 1 at first. Its callbacks are the owner's.
class ValidatingPropertiesField final : public QWidget, public Selectable, public ValidatingField {
  public:
    /// Without an icon.
    explicit ValidatingPropertiesField(QWidget* parent = nullptr);
    /// With one of this image, which outlives the field, and with a formatter of expressions.
    explicit ValidatingPropertiesField(const platform::ImageAsset& image,
                                       QWidget* parent = nullptr);
    ~ValidatingPropertiesField() override;

    [[nodiscard]] bool isValid() const override { return isValid_; }
    void setValid(bool isValid) override;
    [[nodiscard]] bool isSelected() const override { return isSelected_; }
    void setSelected(bool isSelected) override;
    [[nodiscard]] const std::optional<QString>& message() const override { return message_; }
    void setMessage(std::optional<QString> message) override;
    /// For owners; the field does nothing with it.
    [[nodiscard]] const std::optional<QString>& override() const { return overriding_; }
    void setOverride(std::optional<QString> text) { overriding_ = std::move(text); }

    [[nodiscard]] FirstResponderAwareTextField& textField();
    [[nodiscard]] TrackingSlider* icon() const { return icon_; } ///< null without one
    [[nodiscard]] SimpleTextViewPopoverController& popoverController() {
        return popoverController_;
    }
    void updateMessagePopover();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    class Inner;
    class Icon;

    [[nodiscard]] StyledControlState state() const;
    void refresh();
    void judge(const std::string& error);
    void followValue();

    Inner* textField_;               // a child
    TrackingSlider* icon_ = nullptr; // a child
    core::Subscription iconClicks_;
    core::Subscription iconValues_;
    std::optional<QString> message_;
    std::optional<QString> overriding_;
    SimpleTextViewPopoverController popoverController_;
    core::Subscription responder_;
    StyleFollower follower_;
    bool isValid_ = true;
    bool isSelected_ = false;
};

} // namespace driftwood
