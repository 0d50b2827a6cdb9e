#include "updates/standard_updater_controller.hpp"

#include "updates/dialogs/update_windows.hpp"

#include <utility>

namespace updates {

SPUStandardUpdaterController::SPUStandardUpdaterController(
    Starting starting, SPUUpdaterDelegate* updaterDelegate, DialogStyle style,
    UpdaterConfiguration configuration, platform::Workspace& workspace, QObject* parent)
    : QObject(parent),
      updaterDelegate_(updaterDelegate),
      style_(std::move(style)),
      configuration_(std::move(configuration)),
      workspace_(workspace) {
    if (starting == Starting::now) {
        startUpdater();
    }
}

SPUStandardUpdaterController::~SPUStandardUpdaterController() = default;

void SPUStandardUpdaterController::startUpdater() {
    if (isStarted() || updaterDelegate_ == nullptr) {
        return;
    }
    configuration_.identity.feed = QUrl(updaterDelegate_->feedURLString(*this));
    session_ = std::make_unique<UpdateSession>(configuration_);
    windows_ = std::make_unique<UpdateWindows>(*session_, style_, workspace_);
    session_->start();
}

void SPUStandardUpdaterController::checkForUpdates() {
    if (session_ != nullptr) {
        session_->checkForUpdates();
    }
}

} // namespace updates
