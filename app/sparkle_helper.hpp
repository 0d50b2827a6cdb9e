#pragma once

#include "updates/standard_updater_controller.hpp"

#include <memory>

namespace larkvox {

/// Owns the update machinery and tells it where the product's feed is. Main thread.
class SparkleHelper final : public updates::SPUUpdaterDelegate {
  public:
    [[nodiscard]] QString
    feedURLString(const updates::SPUStandardUpdaterController& updater) const override;

    /// Null until the application has made it.
    std::unique_ptr<updates::SPUStandardUpdaterController> updaterController;
};

} // namespace larkvox
