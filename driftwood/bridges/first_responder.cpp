#include "driftwood/bridges/first_responder.hpp"

namespace driftwood {

void becomeFirstResponder(QWidget& control) {
    if (!control.isActiveWindow()) {
        control.activateWindow();
    }
    control.setFocus(Qt::OtherFocusReason);
}

void makeFirstResponderOnClick(std::span<const ClickableControlPair> controlPairs,
                               std::vector<core::Subscription>& cancellables) {
    for (const auto& [view, control] : controlPairs) {
        cancellables.push_back(makeFirstResponder(view.clicked(), control));
    }
}

} // namespace driftwood
