#include "platform/controls/current_event.hpp"

namespace platform {
namespace {

const InputEvent* current = nullptr;

} // namespace

const InputEvent* currentEvent() {
    return current;
}

EventDispatch::EventDispatch(InputEvent event)
    : event_(event), outer_(std::exchange(current, &event_)) {}

EventDispatch::~EventDispatch() {
    current = outer_;
}

} // namespace platform
