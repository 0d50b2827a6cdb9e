#include "platform/controls/control.hpp"

#include <utility>

namespace platform {

Control::~Control() {
    retire(); // the associated objects go next, and must not come back to what is left of this
}

void Control::setAction(Action action, ActionTarget& target) {
    action_ = std::move(action);
    target_ = target.weakTarget();
}

bool Control::sendAction() {
    const Action action = action_; // it may be replaced while it runs
    ActionTarget* const to = target();
    if (!action || to == nullptr) {
        return false;
    }
    action(*to, *this);
    return true;
}

void Control::setAssociatedObject(std::string_view key, std::shared_ptr<void> object) {
    if (objects_ == nullptr) {
        objects_ = std::make_unique<Objects>();
    }
    // The former object goes last: its destructor may come back here.
    std::shared_ptr<void> former = std::exchange((*objects_)[std::string(key)], std::move(object));
}

std::shared_ptr<void> Control::associatedObject(std::string_view key) const {
    if (objects_ == nullptr) {
        return nullptr;
    }
    const auto found = objects_->find(key);
    return found == objects_->end() ? nullptr : found->second;
}

} // namespace platform
