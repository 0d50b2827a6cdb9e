#include "driftwood/text/declarative_text_fields.hpp"

#include "core/fatal.hpp"

#include <QVBoxLayout>

namespace driftwood {
namespace {

using platform::LineAlignment;
using platform::LineEliding;

/// Draws from a style that it is given, and not from that of its class.
class OwnStyleCell final : public StyledTextFieldCell {
  public:
    explicit OwnStyleCell(std::shared_ptr<TextFieldCellStyle> style) : style_(std::move(style)) {}
    [[nodiscard]] TextFieldCellStyle& controlStyle() const override { return *style_; }

  private:
    std::shared_ptr<TextFieldCellStyle> style_;
};

LineAlignment lineAlignment(TextAlignment alignment) {
    return alignment == TextAlignment::leading  ? LineAlignment::left
           : alignment == TextAlignment::center ? LineAlignment::centre
                                                : LineAlignment::right;
}

void fill(QWidget& view, QWidget* content) {
    auto* const layout = new QVBoxLayout(&view);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    view.setFocusProxy(content);
}

} // namespace

LineEliding lineBreakMode(TruncationMode mode) {
    switch (mode) {
    case TruncationMode::head:
        return LineEliding::head;
    case TruncationMode::tail:
        return LineEliding::tail;
    case TruncationMode::middle:
        return LineEliding::middle;
    }
    core::fatal("Unknown truncation mode");
}

KestrelStyledTextField::KestrelStyledTextField(std::optional<QString> placeholder,
                                               core::Binding<QString> text,
                                               std::shared_ptr<TextFieldCellStyle> style,
                                               std::function<void(bool)> onEditingChanged,
                                               QWidget* parent)
    : QWidget(parent),
      placeholder_(std::move(placeholder)),
      text_(std::move(text)),
      onEditingChanged_(std::move(onEditingChanged)),
      field_(new StyledTextField(this)),
      followed_(text_.observe([this](const QString&) { update(); })),
      environment_(*this, [this] { update(); }) {
    if (style != nullptr) {
        field_->setCell(std::make_unique<OwnStyleCell>(std::move(style)));
        field_->setBezeled(true);
        field_->setDrawsBackground(true);
    }
    field_->setAllowsExpansionToolTips(true);
    field_->setDelegate(this);
    fill(*this, field_);
    update();
}

KestrelStyledTextField::~KestrelStyledTextField() {
    retire();
}

void KestrelStyledTextField::update() {
    const auto given = environment_.object();
    static const TextEnvironment plain;
    const TextEnvironment& environment = given != nullptr ? *given : plain;
    field_->setStringValue(text_.get());
    if (const QString text = placeholder_.value_or(QString());
        text != field_->placeholderString()) {
        field_->setPlaceholderString(text);
    }
    if (const auto side = lineAlignment(environment.multilineTextAlignment);
        side != field_->alignment()) {
        field_->setAlignment(side);
    }
    field_->setLineBreakMode(lineBreakMode(environment.truncationMode));
    field_->setAllowsDefaultTighteningForTruncation(environment.allowsTightening);
    field_->setMaximumNumberOfLines(environment.lineLimit.value_or(0));
}

void KestrelStyledTextField::controlTextDidChange(platform::TextField& field) {
    text_.set(field.stringValue());
    if (onEditingChanged_) {
        onEditingChanged_(true);
    }
}

void KestrelStyledTextField::controlTextDidEndEditing(platform::TextField& /*field*/) {
    if (onEditingChanged_) {
        onEditingChanged_(false);
    }
}

StyledSearchFieldWrapper::StyledSearchFieldWrapper(core::Binding<QString> searchText,
                                                   QString placeholderString, QWidget* parent)
    : QWidget(parent),
      searchText_(std::move(searchText)),
      field_(new StyledSearchField(this)),
      followed_(
          searchText_.observe([this](const QString& text) { field_->setStringValue(text); })) {
    field_->setPlaceholderString(placeholderString);
    field_->setStringValue(searchText_.get());
    field_->setAction(&Coordinator::filterContents, coordinator_);
    fill(*this, field_);
}

StyledSearchFieldWrapper::~StyledSearchFieldWrapper() = default;

void StyledSearchFieldWrapper::Coordinator::filterContents(platform::Control& sender) {
    parent.searchText_.set(static_cast<StyledSearchField&>(sender).stringValue());
}

} // namespace driftwood
