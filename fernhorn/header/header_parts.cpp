#include "fernhorn/header/header_parts.hpp"

#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/fonts/fern_font.hpp"
#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/accessible_role.hpp"

#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QLocale>
#include <QPainter>

#include <cmath>
#include <utility>

namespace fernhorn {
namespace {

constexpr int spacing = 24;          // points between the names
constexpr double tabHeight = 28;     // points
constexpr double pressedShare = 0.6; // of the opacity
constexpr double disabledShare = 0.5;

QString captionOf(const AudioParameter& param, int index) {
    return QLocale().toUpper(
        QString::fromStdString(param.valueStrings()->at(static_cast<std::size_t>(index))));
}

ButtonFace faceOf(const AudioParameter& param, int index, const QFont& font) {
    return {.images = {},
            .caption = {.text = captionOf(param, index),
                        .font = font,
                        .color = kitColor("tabUnselected"),
                        .pressedColor = kitColor("tabUnselected")}};
}

QSizeF sizeOf(const AudioParameter& param, int index, const QFont& font) {
    const double width = QFontMetricsF(font).horizontalAdvance(captionOf(param, index));
    return {std::ceil(width) + 2 * HeaderTab::reach, tabHeight};
}

} // namespace

LogoButton::LogoButton(const platform::ImageAsset* logo, std::function<void()> onPressed,
                       QWidget* parent)
    : PressButton({ButtonImages::plain(logo, logo)}, logo != nullptr ? logo->size() : QSizeF(),
                  parent),
      onPressed_(std::move(onPressed)) {
    setAccessibleName(tr("The maker's website"));
}

void LogoButton::pressDidStep(PressStep step) {
    if (step == PressStep::clicked) {
        const auto callback = onPressed_; // it may destroy the button
        callback();
    }
}

void LogoButton::paintContent(QPainter& painter, const ButtonState& state) {
    painter.setOpacity(state.isPressed ? 0.6 : 1);
    PressButton::paintContent(painter, state);
    painter.setOpacity(1);
}

HeaderTab::HeaderTab(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                     const QFont& font, QWidget* parent)
    : IndexButton(param, valueIndex,
                  {.edit = PressEdit::selectAtOnce(static_cast<float>(valueIndex)),
                   .isOn = [index = static_cast<float>(valueIndex)](
                               float value) { return value == index; }},
                  faceOf(*param, valueIndex, font), sizeOf(*param, valueIndex, font), parent) {}

void HeaderTab::paintContent(QPainter& painter, const ButtonState& state) {
    const ButtonCaption& caption = face().caption;
    painter.setOpacity(!state.isEnabled ? disabledShare : state.isPressed ? pressedShare : 1);
    const QRectF place = QRectF(rect()).translated(0, -capitalsLift(caption.font));
    layout_.paint(painter, platform::toRect(place), caption.text, caption.font,
                  state.isOn ? kitColor("tabSelected") : kitColor("tabUnselected"));
    painter.setOpacity(1);
}

HeaderTabs::HeaderTabs(const std::shared_ptr<AudioParameter>& param, const QFont& font,
                       QWidget* parent)
    : QWidget(parent) {
    platform::setAccessibleRole(*this, QAccessible::PageTabList);
    setAccessibleName(nameOf(param));
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing - 2 * HeaderTab::reach);
    const int count = static_cast<int>(param->valueStrings()->size());
    for (int i = 0; i < count; ++i) {
        row->addWidget(new HeaderTab(param, i, font, this));
    }
}

QFont UpdateButtonStyle::font() const {
    return CustomFontModifier{FernFont::dosisMedium, labelSize}.resolved();
}

double UpdateButtonStyle::height() const {
    const QMarginsF padding = labelPadding();
    return QFontMetricsF(font()).height() + padding.top() + padding.bottom();
}

void UpdateButtonStyle::paint(QPainter& painter, const QRectF& body,
                              const platform::ButtonConfiguration& configuration) const {
    constexpr double radius = 4;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(painter.opacity() * (configuration.isPressed ? 0.8 : 1));
    painter.setPen(Qt::NoPen);
    painter.setBrush(kitColor("updateBackground"));
    painter.drawRoundedRect(body, radius, radius);
    painter.setPen(kitColor("background"));
    painter.setFont(font());
    const QRectF place = body.marginsRemoved(labelPadding());
    painter.drawText(place.translated(0, -capitalsLift(font())),
                     Qt::AlignCenter | Qt::TextSingleLine, configuration.label);
    painter.restore();
}

} // namespace fernhorn
