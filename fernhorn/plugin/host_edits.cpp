#include "fernhorn/plugin/host_edits.hpp"

#include <utility>

namespace fernhorn {

using platform::AUParameterAutomationEvent;
using platform::AUParameterAutomationEventType;

HostEdits::HostEdits(std::shared_ptr<platform::AUParameterTree> tree, LoneEdits loneEdits,
                     std::size_t capacity)
    : tree_(std::move(tree)), loneEdits_(loneEdits), ring_(capacity) {
    for (auto& parameter : tree_->allParameters()) {
        const auto index = static_cast<std::uint32_t>(parameters_.size());
        indices_.try_emplace(parameter->address(), index);
        parameters_.push_back(std::make_unique<Parameter>(std::move(parameter)));
    }
    missedIndex_ = static_cast<std::uint32_t>(parameters_.size());
    token_ = tree_->addParameterAutomationObserver(
        [this](const AUParameterAutomationEvent& event) { hear(event); });
}

HostEdits::~HostEdits() {
    tree_->removeParameterObserver(token_);
}

void HostEdits::writeFromHost(platform::AUParameterAddress address, float value) {
    const auto found = indices_.find(address);
    if (found == indices_.end() || isTouched(address)) {
        return;
    }
    parameters_[found->second]->unitSide->setValue(value, token_);
}

bool HostEdits::isTouched(platform::AUParameterAddress address) const {
    const auto found = indices_.find(address);
    return found != indices_.end() &&
           parameters_[found->second]->touches.load(std::memory_order_acquire) > 0;
}

void HostEdits::hear(const AUParameterAutomationEvent& event) {
    const auto found = indices_.find(event.address);
    if (found == indices_.end()) {
        return;
    }
    const std::uint32_t index = found->second;
    std::atomic<int>& touches = parameters_[index]->touches;
    const auto begin = [&] {
        if (touches.fetch_add(1, std::memory_order_acq_rel) == 0) {
            push(index, HostEdit::Kind::begin, event.value);
        }
    };
    const auto end = [&] {
        if (touches.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            push(index, HostEdit::Kind::end, event.value);
        }
    };
    switch (event.eventType) {
    case AUParameterAutomationEventType::touch:
        begin();
        break;
    case AUParameterAutomationEventType::release:
        if (touches.load(std::memory_order_acquire) > 0) { // else its begin was before our time
            push(index, HostEdit::Kind::value, event.value);
            end();
        }
        break;
    case AUParameterAutomationEventType::value:
        if (loneEdits_ == LoneEdits::bracketed) {
            begin();
        }
        push(index, HostEdit::Kind::value, event.value);
        if (loneEdits_ == LoneEdits::bracketed) {
            end();
        }
        break;
    }
}

void HostEdits::push(std::uint32_t index, HostEdit::Kind kind, float value) {
    const std::uint32_t order = parameters_[index]->steps.fetch_add(1, std::memory_order_acq_rel);
    // Behind one that found no room everything of the parameter is told by its state.
    if (!parameters_[index]->isMissed.load(std::memory_order_acquire)) {
        if (const auto ticket = ring_.claim(); ticket.cell != nullptr) {
            ticket.cell->index = index;
            ticket.cell->order = order;
            ticket.cell->kind = kind;
            ticket.cell->value = value;
            ring_.publish(ticket);
            return;
        }
    }
    miss(*parameters_[index]);
}

void HostEdits::miss(Parameter& parameter) {
    parameter.isMissed.store(true, std::memory_order_release);
    isAnyMissed_.store(true, std::memory_order_release);
}

std::optional<HostEdit> HostEdits::translated(std::uint32_t index, HostEdit::Kind kind,
                                              float value) {
    Parameter& parameter = *parameters_[index];
    const HostEdit edit{kind, parameter.unitSide->address(), value};
    switch (kind) {
    case HostEdit::Kind::begin:
        return std::exchange(parameter.isBeginTold, true) ? std::nullopt : std::optional(edit);
    case HostEdit::Kind::end:
        // Touched again meanwhile: the end of that touch is this one's, too.
        if (parameter.touches.load(std::memory_order_acquire) > 0) {
            return std::nullopt;
        }
        return std::exchange(parameter.isBeginTold, false) ? std::optional(edit) : std::nullopt;
    case HostEdit::Kind::value:
        // Steps of several threads may come in another order: this one then gets its brackets when
        // the parameter's state is told.
        if (loneEdits_ == LoneEdits::bracketed && !parameter.isBeginTold) {
            miss(parameter);
            return std::nullopt;
        }
        break;
    }
    return edit;
}

std::optional<HostEdit> HostEdits::next() {
    for (;;) {
        if (auto edit = restOfMissed()) {
            return edit;
        }
        if (const auto ticket = ring_.take(); ticket.cell != nullptr) {
            const Cell& cell = *ticket.cell;
            const bool isCovered =
                static_cast<std::int32_t>(cell.order - parameters_[cell.index]->coveredSteps) < 0;
            const auto edit =
                isCovered ? std::nullopt : translated(cell.index, cell.kind, cell.value);
            ring_.release(ticket);
            if (edit) {
                return edit;
            }
        } else if (!findMissed()) {
            return std::nullopt;
        }
    }
}

// What the ring holds of a parameter from before is told of by its state, too: another producer may
// hold the ring up.
bool HostEdits::findMissed() {
    if (missedIndex_ == parameters_.size()) {
        if (!isAnyMissed_.exchange(false, std::memory_order_acq_rel)) {
            return false;
        }
        missedIndex_ = 0;
    }
    for (; missedIndex_ < parameters_.size(); ++missedIndex_) {
        Parameter& parameter = *parameters_[missedIndex_];
        if (parameter.isMissed.exchange(false, std::memory_order_acq_rel)) {
            parameter.coveredSteps = parameter.steps.load(std::memory_order_acquire);
            missedStep_ = MissedStep::begin;
            return true;
        }
    }
    return false;
}

// Of the parameter that was missed: a begin where there was none yet, the value, and an end when it
// is touched no more.
std::optional<HostEdit> HostEdits::restOfMissed() {
    const Parameter* const parameter =
        missedStep_ != MissedStep::none ? parameters_[missedIndex_].get() : nullptr;
    if (missedStep_ == MissedStep::begin) {
        missedStep_ = MissedStep::value;
        if (loneEdits_ == LoneEdits::bracketed ||
            parameter->touches.load(std::memory_order_acquire) > 0) {
            if (auto edit = translated(missedIndex_, HostEdit::Kind::begin,
                                       parameter->unitSide->writtenValue())) {
                return edit;
            }
        }
    }
    if (missedStep_ == MissedStep::value) {
        missedStep_ = MissedStep::end;
        return translated(missedIndex_, HostEdit::Kind::value, parameter->unitSide->writtenValue());
    }
    if (missedStep_ == MissedStep::end) {
        missedStep_ = MissedStep::none;
        return translated(missedIndex_++, HostEdit::Kind::end, parameter->unitSide->writtenValue());
    }
    return std::nullopt;
}

} // namespace fernhorn
