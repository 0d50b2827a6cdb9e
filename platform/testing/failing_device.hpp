#pragma once

#include "platform/gpu/gpu_device.hpp"

#include <functional>
#include <memory>
#include <utility>

namespace platform::testing {

/// A device whose frame operations fail when it is told so; all else is the real device's.
class FailingDevice final : public GpuDevice {
  public:
    /// `outcome` is asked before each operation, the first of which has the number 0; two make a
    /// frame. What it lets pass, the real device decides.
    using Outcome = std::function<FrameResult(int operation)>;

    explicit FailingDevice(const GpuDevice& real) : GpuDevice(real) {}

    void setOutcome(Outcome outcome) {
        outcome_ = std::move(outcome);
        operation_ = 0;
    }

    FrameResult beginFrame(QRhi& rhi, QRhiCommandBuffer*& commands) override {
        const FrameResult outcome = next();
        return outcome == FrameResult::success ? GpuDevice::beginFrame(rhi, commands) : outcome;
    }
    FrameResult endFrame(QRhi& rhi) override {
        const FrameResult outcome = next();
        const FrameResult real = GpuDevice::endFrame(rhi);
        return outcome == FrameResult::success ? real : outcome;
    }

  private:
    FrameResult next() { return outcome_ ? outcome_(operation_++) : FrameResult::success; }

    Outcome outcome_;
    int operation_ = 0;
};

} // namespace platform::testing
