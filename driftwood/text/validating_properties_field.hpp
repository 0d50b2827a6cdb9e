#pragma once

#include "driftwood/text/validating_text_field.hpp"

// All of this is for the main thread.
namespace driftwood {

/// A value in a list of properties: a small text field on a ground of its own, with an icon before
/// it that changes the value where it is dragged, or without. Its message shows as that of a
/// `ValidatingTextField` does.
class ValidatingPropertiesField final : public QWidget, public Selectable, public ValidatingField {
  public:
    /// The icon becomes a child; null for none.
    explicit ValidatingPropertiesField(QWidget* icon = nullptr, QWidget* parent = nullptr);
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
    [[nodiscard]] QWidget* icon() const { return icon_; }
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

    [[nodiscard]] StyledControlState state() const;
    void refresh();
    void judge(const std::string& error);

    Inner* textField_; // a child
    QWidget* icon_;
    std::optional<QString> message_;
    std::optional<QString> overriding_;
    SimpleTextViewPopoverController popoverController_;
    core::Subscription responder_;
    StyleFollower follower_;
    bool isValid_ = true;
    bool isSelected_ = false;
    bool isFormattersMessage_ = false;
};

} // namespace driftwood
