#pragma once

#include "platform/updates/standard_updater_controller.hpp"

#include <memory>

namespace larkvox {

/// Owns the update machinery and tells it where the product's feed is.
class SparkleHelper final : public platform::SPUUpdaterDelegate {
  public:
    [[nodiscard]] QString
    feedURLString(const platform::SPUStandardUpdaterController& updater) const override;

    /// Null until the application has made it.
    std::unique_ptr<platform::SPUStandardUpdaterController> updaterController;
};

} // namespace larkvox
