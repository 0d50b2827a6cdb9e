#include "fernhorn/controls/label_editing.hpp"

#include <utility>

namespace fernhorn {

LabelEditing::LabelEditing(std::shared_ptr<AudioParameter> param,
                           std::shared_ptr<const LabelFormatter> formatter,
                           std::function<void()> onEditingEnded)
    : param_(std::move(param)),
      formatter_(std::move(formatter)),
      onEditingEnded_(std::move(onEditingEnded)) {}

bool LabelEditing::click() {
    return !std::exchange(isEditing_, true);
}

void LabelEditing::submit() {
    const auto self = shared_from_this(); // whoever is told may destroy the label
    if (const auto typed = formatter_->parse(valueString_)) {
        param_->setValue(*typed * param_->displayScaleFactor(), ParameterEditor::ui,
                         ParameterEditorState::change);
    }
    end();
}

void LabelEditing::end() {
    const auto self = shared_from_this();
    if (onEditingEnded_) {
        onEditingEnded_();
    }
    valueDidChange(param_->value());
    isEditing_ = false;
}

} // namespace fernhorn
