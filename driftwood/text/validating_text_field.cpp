#include "driftwood/text/validating_text_field.hpp"

namespace driftwood {

ValidatingTextField::ValidatingTextField(QWidget* parent) : TextFieldWithCell(parent) {}

void ValidatingTextField::setValid(bool isValid) {
    if (isValid != this->isValid()) {
        styledCell().setValid(isValid);
        refreshFieldEditor();
        update();
    }
}

void ValidatingTextField::setMessage(std::optional<QString> message) {
    isFormattersMessage_ = false;
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
    if (!formatterError().empty()) {
        setValid(false);
        setMessage(QString::fromStdString(formatterError()));
        isFormattersMessage_ = true;
    } else if (isFormattersMessage_) {
        setValid(true);
        setMessage(std::nullopt);
    }
    if (isFirstResponder()) {
        updateMessagePopover();
    }
}

} // namespace driftwood
