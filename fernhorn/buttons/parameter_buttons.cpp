#include "fernhorn/buttons/parameter_buttons.hpp"

#include "core/fatal.hpp"
#include "platform/assets/asset_catalog.hpp"

#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace fernhorn {
namespace {

/// As it is written; null when the parameter has no names.
QString valueName(const std::shared_ptr<AudioParameter>& param, int index) {
    if (param == nullptr || !param->valueStrings()) {
        return {};
    }
    const auto& names = *param->valueStrings();
    if (index < 0 || static_cast<std::size_t>(index) >= names.size()) {
        core::fatal("The parameter " + param->identifier() + " has no value string " +
                    std::to_string(index));
    }
    return QString::fromStdString(names[static_cast<std::size_t>(index)]);
}

/// Which button of so many the key leads to; absent for other keys.
std::optional<std::ptrdiff_t> ledTo(const QKeyEvent& event, bool isRightToLeft, std::ptrdiff_t here,
                                    std::ptrdiff_t count) {
    const std::ptrdiff_t next = (here + 1) % count;
    const std::ptrdiff_t before = (here + count - 1) % count;
    switch (event.key()) {
    case Qt::Key_Down:
        return next;
    case Qt::Key_Up:
        return before;
    case Qt::Key_Right:
        return isRightToLeft ? before : next;
    case Qt::Key_Left:
        return isRightToLeft ? next : before;
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return count - 1;
    default:
        return std::nullopt;
    }
}

ButtonImages imagesOf(ChaosButtonColor color) {
    switch (color) {
    case ChaosButtonColor::yellow:
        break;
    }
    return ButtonImages::ofKit("chaos-button-grey-off", "chaos-button-grey-on-yellow",
                               "chaos-button-grey-off-down", "chaos-button-grey-on-yellow-down");
}

ButtonImages imagesOf(ToggleButtonStyle style) {
    if (style == ToggleButtonStyle::retro) {
        // On, it looks like a modern one; off, it does not give way under the pointer.
        return ButtonImages::ofKit("retro-button", "modern-button-on", "retro-button",
                                   "retro-button-down");
    }
    return ButtonImages::ofKit("modern-button", "modern-button-on", "modern-button-down",
                               "modern-button-on-down");
}

} // namespace

QString nameOf(const std::shared_ptr<AudioParameter>& param) {
    return param != nullptr ? QString::fromStdString(param->name()) : QString();
}

ParameterButton::ParameterButton(std::shared_ptr<AudioParameter> param, ParameterButtonParts parts,
                                 QWidget* parent)
    : PressButton(std::move(parts.face), parts.buttonSize, parent),
      press_(std::move(param), parts.edit),
      isOnAt_(std::move(parts.isOn)),
      isShownOn_(isOnAt_ && isOnAt_(press_.parameter()->value())) {
    setAccessibleName(parts.spokenName);
    if (isOnAt_) {
        value_ = press_.parameter()->observeValue([this](float value) { valueDidChange(value); });
    }
}

void ParameterButton::pressDidStep(PressStep step) {
    const QPointer<ParameterButton> self(this);
    press_.follow(step);
    if (self != nullptr && step == PressStep::clicked) {
        expectUserChange();
    }
}

void ParameterButton::expectUserChange() {
    isUserChangeExpected_ =
        isOnAt_ && isOnAt_(press_.parameter()->valueWithPendingEdits()) != isShownOn_;
}

void ParameterButton::valueDidChange(float value) {
    const bool isOn = isOnAt_(value);
    if (isOn == isShownOn_) {
        return;
    }
    isShownOn_ = isOn;
    update();
    onDidChange();
    if (std::exchange(isUserChangeExpected_, false)) {
        announceOn();
    }
}

QString indexCaption(const std::shared_ptr<AudioParameter>& param, int index) {
    return valueName(param, index).toUpper();
}

IndexButton::IndexButton(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                         ButtonFace face, QSizeF buttonSize, QWidget* parent)
    : IndexButton(param, valueIndex,
                  {.edit = PressEdit::select(static_cast<float>(valueIndex)),
                   .isOn =
                       [valueIndex](float value) {
                           return std::trunc(static_cast<double>(value)) == valueIndex;
                       }},
                  std::move(face), buttonSize, parent) {}

IndexButton::IndexButton(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                         Choice choice, ButtonFace face, QSizeF buttonSize, QWidget* parent)
    : ParameterButton(param,
                      {.edit = choice.edit,
                       .isOn = std::move(choice.isOn),
                       .face = std::move(face),
                       .buttonSize = buttonSize,
                       .spokenName = valueName(param, valueIndex)},
                      parent),
      valueIndex_(valueIndex) {
    if (accessibleName().isEmpty()) {
        setAccessibleName(nameOf(param));
    } else {
        setAccessibleDescription(nameOf(param));
    }
}

std::vector<IndexButton*> IndexButton::group() const {
    std::vector<IndexButton*> members;
    if (parentWidget() == nullptr) {
        return members;
    }
    for (auto* const button :
         parentWidget()->findChildren<IndexButton*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (button->param() == param() &&
            (button == this || (button->isEnabled() && button->isVisible()))) {
            members.push_back(button);
        }
    }
    std::ranges::stable_sort(members, {}, &IndexButton::valueIndex);
    return members;
}

IndexButton::~IndexButton() {
    placeTabStop(true);
}

void IndexButton::placeTabStop(bool isLeaving) {
    auto members = group();
    std::erase_if(members, [&](const IndexButton* button) {
        return button == this && (isLeaving || !isEnabled() || !isVisible());
    });
    if (members.empty()) {
        return;
    }
    auto stop = std::ranges::find_if(members, &IndexButton::hasFocus);
    if (stop == members.end()) {
        stop = std::ranges::find_if(members, &IndexButton::isOn);
    }
    IndexButton* const chosen = stop == members.end() ? members.front() : *stop;
    for (IndexButton* const button : members) {
        button->setFocusPolicy(button == chosen ? Qt::TabFocus : Qt::NoFocus);
    }
}

bool IndexButton::event(QEvent* event) {
    const QPointer<IndexButton> self(this);
    const bool isDealtWith = ParameterButton::event(event);
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::EnabledChange:
        if (self != nullptr) {
            placeTabStop();
        }
        break;
    default:
        break;
    }
    return isDealtWith;
}

bool IndexButton::handleKey(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers others =
        Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const auto members = group();
    if (members.size() < 2 || (event.modifiers() & others)) {
        return false;
    }
    const auto to = ledTo(event, layoutDirection() == Qt::RightToLeft,
                          std::ranges::find(members, this) - members.begin(),
                          static_cast<std::ptrdiff_t>(members.size()));
    if (!to) {
        return false;
    }
    IndexButton& next = *members[static_cast<std::size_t>(*to)];
    next.setFocus(Qt::TabFocusReason);
    next.clickAtOnce();
    return true;
}

void IndexButton::expectUserChange() {
    // What this one chooses, another one loses.
    ParameterButton::expectUserChange();
    for (IndexButton* const button : group()) {
        if (button != this) {
            button->ParameterButton::expectUserChange();
        }
    }
}

ChaosToggleButton::ChaosToggleButton(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                                     ChaosButtonColor color, QSizeF buttonSize, QWidget* parent)
    : IndexButton(param, valueIndex,
                  {imagesOf(color), ButtonCaption::onKey(indexCaption(param, valueIndex))},
                  buttonSize, parent),
      color_(color) {}

ChaosToggleButtonNarrow::ChaosToggleButtonNarrow(const std::shared_ptr<AudioParameter>& param,
                                                 const std::optional<QString>& buttonText,
                                                 QSizeF buttonSize, QWidget* parent)
    : ParameterButton(param,
                      {.edit = PressEdit::toggle(),
                       .isOn = [](float value) { return value == 1; },
                       .face = {ButtonImages::ofKit("chaos-button-narrow-grey-off",
                                                    "chaos-button-narrow-grey-on-yellow",
                                                    "chaos-button-narrow-grey-off-down",
                                                    "chaos-button-narrow-grey-on-yellow-down"),
                                ButtonCaption::onKey(buttonText.value_or(QString()))},
                       .buttonSize = buttonSize,
                       .spokenName = nameOf(param)},
                      parent),
      buttonText_(buttonText) {}

ToggleButton::ToggleButton(const std::shared_ptr<AudioParameter>& param,
                           const std::optional<QString>& nameOverride, double buttonFontSize,
                           const QColor& buttonTextColor, QSizeF buttonSize, QWidget* parent)
    : ParameterButton(
          param,
          {.edit = PressEdit::toggle(),
           .isOn = [](float value) { return value == 1; },
           .face = {ButtonImages::ofKit("modern-button", "modern-button-on", "modern-button-down",
                                        "modern-button-on-down"),
                    ButtonCaption::onPanel(nameOverride.value_or(nameOf(param).toUpper()),
                                           buttonFontSize, buttonTextColor)},
           .buttonSize = buttonSize,
           .spokenName = nameOverride.value_or(nameOf(param))},
          parent),
      nameOverride_(nameOverride),
      buttonFontSize_(buttonFontSize) {}

ModeToggleButton::ModeToggleButton(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                                   ToggleButtonStyle buttonStyle, double buttonFontSize,
                                   const QColor& buttonTextColor, QSizeF buttonSize,
                                   QWidget* parent)
    : IndexButton(param, valueIndex,
                  {imagesOf(buttonStyle), ButtonCaption::onPanel(indexCaption(param, valueIndex),
                                                                 buttonFontSize, buttonTextColor)},
                  buttonSize, parent),
      buttonStyle_(buttonStyle),
      buttonFontSize_(buttonFontSize) {}

LeftRightArrowButton::LeftRightArrowButton(const std::shared_ptr<AudioParameter>& param,
                                           float leftValue, QSizeF buttonSize, QWidget* parent)
    : ParameterButton(param,
                      {.edit = PressEdit::toggle(),
                       .isOn = [leftValue](float value) { return value == leftValue; },
                       .face = {ButtonImages::ofKit("chaos-button-small-yellow-right",
                                                    "chaos-button-small-yellow-left",
                                                    "chaos-button-small-yellow-right-down",
                                                    "chaos-button-small-yellow-left-down")},
                       .buttonSize = buttonSize,
                       .spokenName = nameOf(param)},
                      parent),
      leftValue_(leftValue) {}

QString LeftRightArrowButton::spokenDescription() const {
    if (isOn()) {
        //: Which way an arrow button points
        return tr("Left");
    }
    //: Which way an arrow button points
    return tr("Right");
}

ParameterHoldButton::ParameterHoldButton(const std::shared_ptr<AudioParameter>& param,
                                         const platform::ImageAsset* image,
                                         const platform::ImageAsset* pressedImage, QWidget* parent)
    : ParameterButton(param,
                      {.edit = PressEdit::hold(),
                       .isOn = {},
                       .face = {ButtonImages::plain(image, pressedImage)},
                       .buttonSize = image != nullptr ? image->size() : QSizeF(),
                       .spokenName = nameOf(param)},
                      parent) {}

double ParameterHoldButton::focusRadius() const {
    return std::min(width(), height()) / 2.0 - 1;
}

} // namespace fernhorn
