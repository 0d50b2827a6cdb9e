#pragma once

#include "fernhorn/testing/test_parameter.hpp"

#include <gtest/gtest.h>

namespace fernhorn {

/// A parameter with a queue that is drained by hand, and what its automation observers are told.
class WithParameter : public testing::Test {
  protected:
    void use(TestParameter what) {
        parameter = what.on(queue);
        events.clear();
        recordEvents(*parameter, events);
    }
    /// Once everything has arrived.
    float value() {
        queue.drain();
        return parameter->value();
    }
    void setByHost(float newValue) {
        parameter->setValue(newValue, fromUnit, change);
        queue.drain();
    }

    core::MainQueue queue;
    std::shared_ptr<AudioParameter> parameter;
    AutomationEvents events;
};

} // namespace fernhorn
