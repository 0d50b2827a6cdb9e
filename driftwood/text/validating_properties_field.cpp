#include "driftwood/text/validating_properties_field.hpp"

#include "driftwood/style/styles.hpp"
#include "platform/assets/asset_catalog.hpp"
#include "platform/assets/system_font.hpp"
#include "platform/controls/focus_ring.hpp"

#include <QPainter>
#include <QStyle>

namespace driftwood {
namespace {

// The places of the parts, in points.
constexpr int edge = 3;
constexpr int iconWidth = 14;
constexpr int iconHeight = 24;
constexpr int behindIcon = 8;

std::optional<double> numberIn(const FieldValue& value) {
    if (const auto* const text = std::get_if<std::string>(&value)) {
        return parseNumber(*text);
    }
    const auto* const number = std::get_if<double>(&value);
    return number != nullptr ? std::optional(*number) : std::nullopt;
}

} // namespace

/// Plain, in the colour that it is told.
class ValidatingPropertiesFieldCell final : public platform::TextFieldCell {
  public:
    ValidatingPropertiesFieldCell() { setFont(platform::systemFont(10, QFont::Normal)); }

    QColor color;

    [[nodiscard]] core::Rect titleRect(const core::Rect& bounds) const override {
        core::Rect rect = TextFieldCell::titleRect(bounds);
        const double height = textSize().height;
        rect.origin.y += (rect.size.height - height) * 0.5;
        rect.size.height = height;
        return rect;
    }
    void setUpFieldEditorAttributes(QLineEdit& editor) const override {
        TextFieldCell::setUpFieldEditorAttributes(editor);
        using Input = Styles::TextInput;
        QPalette palette = editor.palette();
        palette.setColor(QPalette::Text, color);
        palette.setColor(QPalette::Highlight, toQColor(Input::selectedBackground()));
        palette.setColor(QPalette::HighlightedText, toQColor(Input::selectedTextColor()));
        editor.setPalette(palette);
    }

  protected:
    [[nodiscard]] core::EdgeInsets textInsets() const override { return {0, 6, 0, 6}; }
    [[nodiscard]] QColor textColor(const platform::CellCanvas& /*canvas*/) const override {
        return color;
    }
    [[nodiscard]] QColor placeholderColor(const platform::CellCanvas& /*canvas*/) const override {
        return toQColor(Styles::TextInput::placeholderTextColor());
    }
};

class ValidatingPropertiesField::Inner final : public FirstResponderAwareTextField {
  public:
    explicit Inner(ValidatingPropertiesField& field)
        : FirstResponderAwareTextField(std::make_unique<ValidatingPropertiesFieldCell>(), &field),
          field_(field) {
        setEditable(true);
    }

    void setColor(const QColor& color) {
        auto& cell = static_cast<ValidatingPropertiesFieldCell&>(textCell());
        if (cell.color != color) {
            cell.color = color;
            refreshFieldEditor();
            update();
        }
    }

    /// From the icon: whoever has typed something has let go of it.
    void moveTo(double number) {
        replaceObjectValue(number);
        sendAction(); // may destroy the field
    }

    [[nodiscard]] QString spokenName() const override {
        const QString name = field_.accessibleName();
        return name.isEmpty() ? FirstResponderAwareTextField::spokenName() : name;
    }
    [[nodiscard]] QString spokenDescription() const override {
        return field_.message_ ? *field_.message_
                               : FirstResponderAwareTextField::spokenDescription();
    }
    [[nodiscard]] std::optional<bool> accessibleSelection() const override {
        return field_.isSelected_ ? std::optional(true) : std::nullopt;
    }

  protected:
    void textDidChange() override {
        FirstResponderAwareTextField::textDidChange();
        field_.updateMessagePopover();
    }
    void formatterDidJudge() override { field_.judge(formatterError()); }
    void objectValueDidChange() override { field_.followValue(); }

  private:
    ValidatingPropertiesField& field_;
};

/// The keys have the field beside it.
class ValidatingPropertiesField::Icon final : public TrackingSlider {
  public:
    Icon(const platform::ImageAsset& image, ValidatingPropertiesField& field)
        : TrackingSlider(&image, &field), field_(field) {
        setContinuous(true);
        setFocusPolicy(Qt::NoFocus);
    }
    [[nodiscard]] QString spokenName() const override { return field_.textField_->spokenName(); }

  private:
    ValidatingPropertiesField& field_;
};

ValidatingPropertiesField::ValidatingPropertiesField(QWidget* parent)
    : QWidget(parent),
      textField_(new Inner(*this)),
      responder_(textField_->firstResponderPublisher().subscribe([this](const auto&) {
          refresh();
          updateMessagePopover();
      })),
      follower_(*this, StyledTextFieldCell::style()) {
    setFocusProxy(textField_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    refresh();
}

ValidatingPropertiesField::ValidatingPropertiesField(const platform::ImageAsset& image,
                                                     QWidget* parent)
    : ValidatingPropertiesField(parent) {
    icon_ = new Icon(image, *this);
    // A drag begins at the number of now, whatever the range was when the field got it.
    iconClicks_ = icon_->clicked().subscribe([this](const Click&) { followValue(); });
    iconValues_ = icon_->doubleValuePublisher().subscribe(
        [field = textField_](double value) { field->moveTo(value); });
    textField_->setFormatter(std::make_shared<ExpressionFormatter>());
}

ValidatingPropertiesField::~ValidatingPropertiesField() {
    delete textField_; // it still tells this one of things
}

FirstResponderAwareTextField& ValidatingPropertiesField::textField() {
    return *textField_;
}

void ValidatingPropertiesField::setValid(bool isValid) {
    if (isValid != isValid_) {
        isValid_ = isValid;
        refresh();
    }
}

void ValidatingPropertiesField::setSelected(bool isSelected) {
    if (isSelected != isSelected_) {
        isSelected_ = isSelected;
        refresh();
    }
}

void ValidatingPropertiesField::setMessage(std::optional<QString> message) {
    keepOwnersMessage();
    if (message != message_) {
        message_ = std::move(message);
        if (QAccessible::isActive()) {
            QAccessibleEvent event(textField_, QAccessible::DescriptionChanged);
            QAccessible::updateAccessibility(&event);
        }
    }
}

void ValidatingPropertiesField::judge(const std::string& error) {
    followFormatter(error);
    if (textField_->isFirstResponder()) {
        updateMessagePopover();
    }
}

void ValidatingPropertiesField::followValue() {
    if (icon_ == nullptr) {
        return;
    }
    const std::optional<double> number = numberIn(textField_->objectValue());
    icon_->setEnabled(number.has_value());
    if (number) {
        icon_->setDoubleValue(*number);
    }
}

void ValidatingPropertiesField::updateMessagePopover() {
    popoverController_.update(message_, textField_->isFirstResponder(), *this);
}

StyledControlState ValidatingPropertiesField::state() const {
    StyledControlState state = StyledControlState::default_;
    const auto insertIf = [&](bool is, StyledControlState flag) {
        if (is) {
            state |= flag;
        }
    };
    insertIf(!isEnabled(), StyledControlState::disabled);
    insertIf(isSelected_, StyledControlState::selected);
    insertIf(!isValid_, StyledControlState::invalid);
    insertIf(textField_->showsFocusRing(), StyledControlState::focused);
    return state;
}

/// What is invalid or disabled shows so first, then what is selected.
void ValidatingPropertiesField::refresh() {
    using Input = Styles::TextInput;
    textField_->setColor(toQColor(!isEnabled()  ? Input::disabledTextColor()
                                  : !isValid_   ? Input::errorTextColor()
                                  : isSelected_ ? Input::selectedTextColor()
                                                : Input::textColor()));
    update();
}

QSize ValidatingPropertiesField::sizeHint() const {
    const QSize text = textField_->sizeHint();
    const int beside = icon_ != nullptr ? 2 * edge + iconWidth + behindIcon : 0;
    return {text.width() + beside, std::max(text.height(), iconHeight)};
}

QSize ValidatingPropertiesField::minimumSizeHint() const {
    const int beside = icon_ != nullptr ? 2 * edge + iconWidth + behindIcon : 0;
    return {textField_->minimumSizeHint().width() + beside, sizeHint().height()};
}

void ValidatingPropertiesField::resizeEvent(QResizeEvent* /*event*/) {
    if (icon_ == nullptr) {
        textField_->setGeometry(rect());
        return;
    }
    const auto placed = [this](int leading, int top, int width, int height) {
        return QStyle::visualRect(layoutDirection(), rect(), {leading, top, width, height});
    };
    icon_->setGeometry(placed(edge, (height() - iconHeight) / 2, iconWidth, iconHeight));
    const int from = edge + iconWidth + behindIcon;
    const int tall = std::min(height(), std::max(textField_->sizeHint().height(), iconHeight));
    textField_->setGeometry(
        placed(from, (height() - tall) / 2, std::max(0, width() - edge - from), tall));
}

void ValidatingPropertiesField::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        refresh();
    } else if (event->type() == QEvent::LayoutDirectionChange) {
        resizeEvent(nullptr);
    } else if (event->type() == QEvent::ActivationChange) {
        update();
    }
}

void ValidatingPropertiesField::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const StyledControlState look = state();
    const QRectF bounds = rect();
    // What is selected has a lit rim; the outline shows the focus.
    StyledControlState ground = look - StyledControlState::focused;
    if (isSelected_ && isEnabled()) {
        ground |= StyledControlState::focused;
    }
    if (const auto* const image = toImageAsset(StyledTextFieldCell::style().bezelImage(ground))) {
        const platform::CellCanvas canvas{painter, palette().color(QPalette::ButtonText)};
        // The artwork keeps two points free on every side.
        platform::paintCellImage(canvas, platform::toRect(bounds.adjusted(-2, -2, 2, 2)), *image,
                                 1);
    }
    if (look.contains(StyledControlState::focused)) {
        // Its line runs two points within the bounds. The colour of an error has to be read on it.
        platform::paintFocusRing(painter, bounds.adjusted(1, 1, -1, -1),
                                 toQColor(assetSource().color("Highlight/System")), 3,
                                 isValid_ ? platform::FocusRingFill::light
                                          : platform::FocusRingFill::none);
    }
}

} // namespace driftwood
