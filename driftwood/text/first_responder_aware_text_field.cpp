#include "driftwood/text/first_responder_aware_text_field.hpp"

#include <QPointer>

namespace driftwood {

FirstResponderAwareTextField::FirstResponderAwareTextField(QWidget* parent) : TextField(parent) {}

FirstResponderAwareTextField::FirstResponderAwareTextField(
    std::unique_ptr<platform::TextFieldCell> cell, QWidget* parent)
    : TextField(std::move(cell), parent) {}

FirstResponderAwareTextField::~FirstResponderAwareTextField() {
    if (publisher_ != nullptr) {
        publisher_->finish();
    }
}

core::Stream<FirstResponderStatus>& FirstResponderAwareTextField::firstResponderPublisher() {
    if (publisher_ == nullptr) {
        publisher_ = std::make_unique<core::Subject<FirstResponderStatus>>();
    }
    return *publisher_;
}

void FirstResponderAwareTextField::setFormatter(std::shared_ptr<const Formatter> formatter) {
    if (formatter == nullptr) {
        formatted_.reset();
        formatterDidJudge();
        return;
    }
    FieldValue value = objectValue();
    formatted_ = std::make_unique<Formatted>(Formatted{std::move(formatter), std::move(value), {}});
    showObjectValue();
    judge({});
    objectValueDidChange();
}

const Formatter* FirstResponderAwareTextField::formatter() const {
    return formatted_ != nullptr ? formatted_->formatter.get() : nullptr;
}

FieldValue FirstResponderAwareTextField::objectValue() const {
    return formatted_ != nullptr ? formatted_->value : FieldValue(stringValue().toStdString());
}

void FirstResponderAwareTextField::setObjectValue(FieldValue value) {
    if (formatted_ == nullptr) {
        const auto* const text = std::get_if<std::string>(&value);
        setStringValue(text != nullptr ? QString::fromStdString(*text) : QString());
        return;
    }
    formatted_->value = std::move(value);
    if (!isFirstResponder() || !isTextModified()) {
        showObjectValue();
        judge({});
    }
    objectValueDidChange();
}

void FirstResponderAwareTextField::replaceObjectValue(FieldValue value) {
    if (formatted_ != nullptr) {
        formatted_->value = std::move(value);
        showObjectValue();
        judge({});
        objectValueDidChange();
    }
}

const std::string& FirstResponderAwareTextField::formatterError() const {
    static const std::string none;
    return formatted_ != nullptr ? formatted_->error : none;
}

QString FirstResponderAwareTextField::shownText() const {
    const Formatter& formatter = *formatted_->formatter;
    const auto text = isFirstResponder() ? formatter.editingStringForObjectValue(formatted_->value)
                                         : formatter.stringForObjectValue(formatted_->value);
    return QString::fromStdString(text.value_or(std::string()));
}

void FirstResponderAwareTextField::showObjectValue() {
    setStringValue(shownText());
}

void FirstResponderAwareTextField::textWasReplaced() {
    TextField::textWasReplaced();
    if (formatted_ == nullptr || stringValue() == shownText()) {
        return;
    }
    FormatterResult read = formatted_->formatter->objectValueForString(stringValue().toStdString());
    if (read.isSuccess()) {
        formatted_->value = *std::move(read.objectValue);
        objectValueDidChange();
    }
    judge(std::move(read.errorDescription));
}

void FirstResponderAwareTextField::judge(std::string error) {
    formatted_->error = std::move(error);
    formatterDidJudge();
}

void FirstResponderAwareTextField::firstResponderMayHaveChanged() {
    const bool status = isFirstResponder();
    if (status == publishedStatus_) {
        return;
    }
    publishedStatus_ = status;
    if (status && formatted_ != nullptr && formatted_->error.empty()) {
        showObjectValue(); // as it is edited
    }
    const QPointer<FirstResponderAwareTextField> self(this);
    if (publisher_ != nullptr) {
        publisher_->send({this, status});
    }
    if (self != nullptr) {
        handleResponderStatusChanged(status);
    }
}

void FirstResponderAwareTextField::textDidChange() {
    if (formatted_ != nullptr) {
        judge(formatted_->formatter->isPartialStringValid(stringValue().toStdString())
                  .errorDescription);
    }
    TextField::textDidChange();
}

void FirstResponderAwareTextField::textDidEndEditing() {
    if (formatted_ != nullptr) {
        if (isTextModified()) {
            const FormatterResult read =
                formatted_->formatter->objectValueForString(stringValue().toStdString());
            if (read.isSuccess()) {
                formatted_->value = *read.objectValue;
                objectValueDidChange();
            }
            judge(read.errorDescription);
        }
        if (formatted_->error.empty()) {
            showObjectValue();
        }
    }
    TextField::textDidEndEditing();
}

} // namespace driftwood
