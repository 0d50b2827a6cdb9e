#include "driftwood/text/validating_text_field.hpp"

#include <utility>

namespace driftwood {

void ValidatingField::followFormatter(const std::string& error) {
    if (!error.empty()) {
        if (!isFormattersMessage_) {
            ownersMessage_ = message();
        }
        setValid(false);
        setMessage(QString::fromStdString(error));
        isRefused_ = isFormattersMessage_ = true;
    } else if (std::exchange(isRefused_, false)) {
        setValid(true);
        if (isFormattersMessage_) {
            setMessage(std::exchange(ownersMessage_, {}));
        }
    }
}

ValidatingTextField::ValidatingTextField(QWidget* parent) : TextFieldWithCell(parent) {}

void ValidatingTextField::setValid(bool isValid) {
    if (isValid != this->isValid()) {
        styledCell().setValid(isValid);
        refreshFieldEditor();
        update();
    }
}

void ValidatingTextField::setMessage(std::optional<QString> message) {
    keepOwnersMessage();
    if (message != message_) {
        message_ = std::move(message);
        if (QAccessible::isActive()) {
            QAccessibleEvent event(this, QAccessible::DescriptionChanged);
            QAccessible::updateAccessibility(&event);
        }
    }
}

void ValidatingTextField::updateMessagePopover() {
    popoverController_.update(message_, isFirstResponder(), *this);
}

QString ValidatingTextField::spokenDescription() const {
    return message_ ? *message_ : StyledTextField::spokenDescription();
}

void ValidatingTextField::textDidChange() {
    StyledTextField::textDidChange();
    updateMessagePopover();
}

void ValidatingTextField::handleResponderStatusChanged(bool newStatus) {
    StyledTextField::handleResponderStatusChanged(newStatus);
    updateMessagePopover();
}

void ValidatingTextField::formatterDidJudge() {
    followFormatter(formatterError());
    if (isFirstResponder()) {
        updateMessagePopover();
    }
}

} // namespace driftwood
