#include "fernhorn/dials/value_label.hpp"

#include "fernhorn/dials/internal/value_field.hpp"
#include "fernhorn/dials/pictures.hpp"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace fernhorn {
namespace {

constexpr double rowHeight = 40;
constexpr double captionSpacing = 4;
constexpr double suffixSpacing = 4;

QColor toQColor(const core::SRGBColor& color) {
    return QColor::fromRgbF(color.red, color.green, color.blue, color.alpha);
}

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

TextPictures& pictures(FernFont font, double size, const QColor& color) {
    return TextPictures::of(CustomFontModifier{font, size}.resolved(), color);
}

} // namespace

LabelPart::LabelPart(QWidget& view, std::shared_ptr<AudioParameter> param,
                     const LabelDisplayOptions& options,
                     std::shared_ptr<const LabelFormatter> formatter,
                     std::function<void()> onEditingEnded, const QColor& color, FernFont font)
    : view_(view),
      editing_(std::make_shared<LabelEditing>(std::move(param), std::move(formatter),
                                              std::move(onEditingEnded))),
      options_(options),
      color_(color),
      valueColor_(toQColor(options.valueColor)),
      font_(font),
      captions_(pictures(font, options.labelFontSize, color_)),
      values_(pictures(font, options.valueFontSize, valueColor_)),
      caption_(options.showName ? toQString(editing_->param()->name()).toUpper() : QString()),
      suffix_(options.showSuffix && !editing_->formatter()->writesUnit()
                  ? toQString(editing_->param()->displayableSuffix())
                  : QString()) {
    valueDidChange(editing_->param()->value());
}

LabelPart::~LabelPart() = default;

double LabelPart::captionHeight() const {
    return options_.showName ? std::ceil(captions_.lineHeight()) + captionSpacing : 0;
}

double LabelPart::height() const {
    return captionHeight() + rowHeight;
}

double LabelPart::valueWidth() const {
    const double suffix = suffix_.isEmpty() ? 0 : suffixSpacing + values_.width(suffix_);
    return values_.width(text_) + suffix;
}

double LabelPart::usualWidth() const {
    const auto& param = *editing_->param();
    const double suffix = suffix_.isEmpty() ? 0 : suffixSpacing + values_.width(suffix_);
    double width = std::max(options_.labelWidth, captions_.width(caption_));
    for (const float value : {param.valueRange().lower, param.valueRange().upper,
                              param.defaultValue(), param.value()}) {
        const QString text = toQString(editing_->formatter()->format(value));
        width = std::max(width, values_.width(text) + suffix);
    }
    return std::ceil(width);
}

QRectF LabelPart::rect() const {
    const double value = editing_->isEditing() ? options_.labelWidth : valueWidth();
    const double width = std::max(value, captions_.width(caption_));
    return {center_.x() - width / 2, center_.y() - height() / 2, width, height()};
}

QRectF LabelPart::valueRect() const {
    return rect().adjusted(0, captionHeight(), 0, 0);
}

void LabelPart::setCenter(QPointF center) {
    center_ = center;
    placeField();
}

void LabelPart::placeField() {
    if (field_ != nullptr) {
        const QSizeF size(options_.labelWidth, field_->sizeHint().height());
        const QPointF middle = valueRect().center();
        field_->setGeometry(
            QRectF(middle - QPointF(size.width(), size.height()) / 2, size).toRect());
    }
}

void LabelPart::open() {
    if (!editing_->click()) {
        return;
    }
    if (field_ == nullptr) {
        makeField();
    }
    field_->setText(toQString(editing_->valueString()));
    focusBefore_ = QApplication::focusWidget();
    placeField();
    field_->show();
    field_->selectAll();
    field_->setFocus(Qt::PopupFocusReason); // borrowed: focus rings come back as they were
    QApplication::instance()->installEventFilter(this);
    view_.update();
}

void LabelPart::makeField() {
    field_ = new ValueField(view_);
    field_->setFont(CustomFontModifier{font_, options_.editingFontSize}.resolved());
    QPalette palette = field_->palette();
    palette.setColor(QPalette::Text, valueColor_);
    palette.setColor(QPalette::Base, Qt::transparent);
    field_->setPalette(palette);
    field_->setAccessibleName(toQString(editing_->param()->name()));
    connect(field_, &QLineEdit::textChanged, this,
            [this](const QString& text) { editing_->setValueString(text.toStdString()); });
    connect(field_, &ValueField::submitted, this, [this] {
        const QPointer<LabelPart> self(this);
        editing_->submit();
        if (self != nullptr) {
            closeField();
            emit submitted();
        }
    });
    connect(field_, &ValueField::escaped, this, [this] {
        const QPointer<LabelPart> self(this);
        editing_->end();
        if (self != nullptr) {
            closeField();
        }
    });
    connect(field_, &ValueField::left, this, &LabelPart::leave);
}

void LabelPart::leave() {
    if (editing_->isEditing()) {
        editing_->focusLost();
        closeField();
    }
}

void LabelPart::closeField() {
    QApplication::instance()->removeEventFilter(this);
    if (field_->hasFocus()) {
        // A hidden widget would hand the keyboard to the next one in the window.
        if (focusBefore_ != nullptr && focusBefore_ != field_) {
            focusBefore_->setFocus(Qt::PopupFocusReason);
        } else {
            field_->clearFocus();
        }
    }
    field_->hide();
    view_.update();
}

bool LabelPart::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && editing_->isEditing() &&
        object->isWidgetType()) {
        // Few widgets take the keyboard when they are clicked, so the click itself ends the edit.
        const auto& pressed = static_cast<const QWidget&>(*object);
        // Other windows, the field's own menu among them, leave it as it is.
        const bool isOwn = &pressed == field_ || field_->isAncestorOf(&pressed) ||
                           pressed.window() != view_.window();
        const QPointF point = static_cast<QMouseEvent*>(event)->globalPosition();
        if (!isOwn && !rect().contains(view_.mapFromGlobal(point))) {
            field_->clearFocus();
            leave(); // also in a window without the keyboard
        }
    }
    return QObject::eventFilter(object, event);
}

bool LabelPart::valueDidChange(float value) {
    editing_->valueDidChange(value);
    QString text = toQString(editing_->valueString());
    if (editing_->isEditing()) {
        field_->follow(text);
    }
    if (text == text_) {
        return false;
    }
    text_ = std::move(text);
    return true;
}

void LabelPart::paint(QPainter& painter) const {
    const QRectF all = rect();
    if (!caption_.isEmpty()) {
        captions_.paint(painter, {all.center().x() - captions_.width(caption_) / 2, all.top()},
                        caption_);
    }
    if (editing_->isEditing()) {
        return;
    }
    const double width = values_.width(text_);
    const double suffixWidth = suffix_.isEmpty() ? 0 : suffixSpacing + values_.width(suffix_);
    QPointF at(center_.x() - (width + suffixWidth) / 2,
               all.bottom() - (rowHeight + values_.lineHeight()) / 2);
    values_.paint(painter, at, text_);
    at.rx() += width + suffixSpacing;
    values_.paint(painter, at, suffix_);
}

} // namespace fernhorn
