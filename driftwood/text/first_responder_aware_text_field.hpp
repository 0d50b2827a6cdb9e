#pragma once

#include "core/streams.hpp"
#include "driftwood/text/formatter.hpp"
#include "platform/controls/text_field.hpp"

#include <memory>
#include <utility>

// All of this is for the main thread.
namespace driftwood {

class FirstResponderAwareTextField;

/// A field, and whether the keyboard of its window is in it by now.
using FirstResponderStatus = std::pair<FirstResponderAwareTextField*, bool>;

/// A text field that tells when it gets the keyboard of its window and when it loses it; another
/// window or a menu that borrow it change nothing. It can have a formatter, and then holds a value
/// beside its text.
class FirstResponderAwareTextField : public platform::TextField {
  public:
    /// A plain field.
    explicit FirstResponderAwareTextField(QWidget* parent = nullptr);
    ~FirstResponderAwareTextField() override;

    /// Completed when the field is destroyed. It is made when it is first asked for.
    [[nodiscard]] core::Stream<FirstResponderStatus>& firstResponderPublisher();
    /// The last status that was sent, or would have been.
    [[nodiscard]] bool publishedFirstResponderStatus() const { return publishedStatus_; }

    /// Null takes it away. With one the field shows and reads `objectValue`.
    void setFormatter(std::shared_ptr<const Formatter> formatter);
    [[nodiscard]] const Formatter* formatter() const;
    /// The text itself while there is no formatter. With one, what was last set or typed, accepted
    /// when the typing ends.
    [[nodiscard]] FieldValue objectValue() const;
    /// Shown at once, but not over what a user is just typing.
    void setObjectValue(FieldValue value);
    /// Why the formatter refuses the text of now; empty when it does not.
    [[nodiscard]] const std::string& formatterError() const;

  protected:
    explicit FirstResponderAwareTextField(std::unique_ptr<platform::TextFieldCell> cell,
                                          QWidget* parent);

    /// A hook, after each change that was published. It may destroy the field.
    virtual void handleResponderStatusChanged(bool /*newStatus*/) {}
    /// A hook, after the formatter has looked at a text: `formatterError`.
    virtual void formatterDidJudge() {}
    /// A hook, after `objectValue` was set or typed while there is a formatter.
    virtual void objectValueDidChange() {}
    /// As `setObjectValue`, and shown over what is just being typed. Only with a formatter.
    void replaceObjectValue(FieldValue value);

    void firstResponderMayHaveChanged() override;
    /// A text that a program sets is read as one that is typed.
    void textWasReplaced() override;
    void textDidChange() override;
    void textDidEndEditing() override;

  private:
    struct Formatted {
        std::shared_ptr<const Formatter> formatter;
        FieldValue value;
        std::string error;
    };

    [[nodiscard]] QString shownText() const;
    void showObjectValue();
    void judge(std::string error);

    std::unique_ptr<core::Subject<FirstResponderStatus>> publisher_;
    std::unique_ptr<Formatted> formatted_;
    bool publishedStatus_ = false;
};

} // namespace driftwood
