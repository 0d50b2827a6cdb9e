#pragma once

#include "core/streams.hpp"

#include <QPointer>
#include <QWidget>

#include <span>
#include <vector>

namespace driftwood {

/// Gives a control the keyboard: makes its window key if it is not, then gives it the focus.
void becomeFirstResponder(QWidget& control);

/// Gives a control the keyboard for every value of a stream, for as long as the subscription lasts
/// and the control lives. Main thread.
template<class T>
[[nodiscard]] core::Subscription makeFirstResponder(core::Stream<T>& stream, QWidget& control) {
    return stream.subscribe([control = QPointer<QWidget>(&control)](const T&) {
        if (control != nullptr) {
            becomeFirstResponder(*control);
        }
    });
}

/// Something that was clicked.
struct Click {};

/// A view that tells of its clicks.
class ClickableView {
  public:
    virtual ~ClickableView() = default;
    [[nodiscard]] virtual core::Stream<Click>& clicked() = 0;
};

/// A view, and the control that a click on it is meant for. Neither is owned.
struct ClickableControlPair {
    ClickableView& view;
    QWidget& control;
};

/// A click on each view gives the control beside it the keyboard: clicking the icon of a field
/// focuses the field. The subscriptions are added to `cancellables`.
void makeFirstResponderOnClick(std::span<const ClickableControlPair> controlPairs,
                               std::vector<core::Subscription>& cancellables);

} // namespace driftwood
