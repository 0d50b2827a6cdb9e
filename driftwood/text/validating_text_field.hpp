#pragma once

#include "driftwood/text/simple_text_view_popover.hpp"
#include "driftwood/text/styled_text_field.hpp"

// All of this is for the main thread.
namespace driftwood {

/// A field whose text can be wrong, and that can say why.
class ValidatingField : public Validating {
  public:
    virtual void setValid(bool isValid) = 0;
    [[nodiscard]] virtual const std::optional<QString>& message() const = 0;
    virtual void setMessage(std::optional<QString> message) = 0;

  protected:
    /// The formatter's reason to refuse a text stands over the message of the field's owner, which
    /// comes back when there is none any more.
    void followFormatter(const std::string& error);
    /// The owner has set the message.
    void keepOwnersMessage() { isFormattersMessage_ = false; }

  private:
    std::optional<QString> ownersMessage_; // while the formatter's is shown
    bool isRefused_ = false;               // by the formatter
    bool isFormattersMessage_ = false;
};

class ValidatingTextFieldCell
    : public StyledCell<ValidatingTextFieldCell, StyledTextFieldCell, TextFieldCellStyle>,
      public Validating {
  public:
    using StyledCell::StyledCell;

    [[nodiscard]] bool isValid() const override { return isValid_; }
    void setValid(bool isValid) { isValid_ = isValid; }

  protected:
    [[nodiscard]] const Validating* validating() const override { return this; }

  private:
    bool isValid_ = true;
};

/// A text field that shows whether its text is valid. While it has the keyboard its message, where
/// it has one, stands in a popover, valid or not. What its formatter refuses is invalid, and the
/// formatter's reason is the message.
class ValidatingTextField : public TextFieldWithCell<ValidatingTextFieldCell, StyledTextField>,
                            public ValidatingField {
  public:
    explicit ValidatingTextField(QWidget* parent = nullptr);

    [[nodiscard]] bool isValid() const override { return styledCell().isValid(); }
    void setValid(bool isValid) override;
    [[nodiscard]] const std::optional<QString>& message() const override { return message_; }
    /// Neither shows it nor changes one that is shown: that happens with the next change of the
    /// text or of the keyboard, or by `updateMessagePopover`.
    void setMessage(std::optional<QString> message) override;

    [[nodiscard]] SimpleTextViewPopoverController& popoverController() {
        return popoverController_;
    }
    void updateMessagePopover();

    [[nodiscard]] QString spokenDescription() const override;

  protected:
    void textDidChange() override;
    void handleResponderStatusChanged(bool newStatus) override;
    void formatterDidJudge() override;

  private:
    std::optional<QString> message_;
    SimpleTextViewPopoverController popoverController_;
};

} // namespace driftwood
