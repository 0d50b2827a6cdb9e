#pragma once

#include "fernhorn/format/label_formatter.hpp"
#include "fernhorn/model/audio_parameter.hpp"

#include <functional>
#include <memory>
#include <string>

namespace fernhorn {

/// A value's label as a read-out or as a field: its states, and what leads from one to the other.
/// It knows texts and values, not widgets. Main thread.
class LabelEditing : public std::enable_shared_from_this<LabelEditing> {
  public:
    /// `param` and `formatter` must not be null; `onEditingEnded` may be empty.
    LabelEditing(std::shared_ptr<AudioParameter> param,
                 std::shared_ptr<const LabelFormatter> formatter,
                 std::function<void()> onEditingEnded);

    [[nodiscard]] const std::shared_ptr<AudioParameter>& param() const { return param_; }
    [[nodiscard]] const std::shared_ptr<const LabelFormatter>& formatter() const {
        return formatter_;
    }
    [[nodiscard]] bool isEditing() const { return isEditing_; }
    /// The text of the value, or what the user has made of it. UTF-8.
    [[nodiscard]] const std::string& valueString() const { return valueString_; }
    void setValueString(std::string text) { valueString_ = std::move(text); }

    /// The parameter has another value, or the label is first shown: its text takes the place of
    /// whatever was typed.
    void valueDidChange(float value) { valueString_ = formatter_->format(value); }
    /// Opens the field. False when it is open.
    bool click();
    /// Sets the parameter to what was typed, in what the label shows, if it is understood; then
    /// ends the edit.
    void submit();
    /// Ends the edit: tells `onEditingEnded`, shows the value, closes the field.
    void end();
    /// Closes the field and tells nobody; what was typed stays until the value changes.
    void focusLost() { isEditing_ = false; }

  private:
    const std::shared_ptr<AudioParameter> param_;
    const std::shared_ptr<const LabelFormatter> formatter_;
    const std::function<void()> onEditingEnded_;
    std::string valueString_;
    bool isEditing_ = false;
};

} // namespace fernhorn
