#include "fernhorn/controls/index_button.hpp"

#include "core/fatal.hpp"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>
#include <string>

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

/// How many buttons further the key leads; 0 for other keys.
int wayOf(const QKeyEvent& event, bool isRightToLeft) {
    switch (event.key()) {
    case Qt::Key_Down:
        return 1;
    case Qt::Key_Up:
        return -1;
    case Qt::Key_Right:
        return isRightToLeft ? -1 : 1;
    case Qt::Key_Left:
        return isRightToLeft ? 1 : -1;
    default:
        return 0;
    }
}

} // namespace

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

bool IndexButton::handleKey(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers others =
        Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const int way = wayOf(event, layoutDirection() == Qt::RightToLeft);
    const auto members = group();
    if (way == 0 || members.size() < 2 || (event.modifiers() & others)) {
        return false;
    }
    const auto count = static_cast<std::ptrdiff_t>(members.size());
    const auto here = std::ranges::find(members, this) - members.begin();
    IndexButton& next = *members[static_cast<std::size_t>((here + way + count) % count)];
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

} // namespace fernhorn
