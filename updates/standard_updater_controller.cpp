#include "platform/updates/standard_updater_controller.hpp"

#include "platform/updates/dialogs/update_windows.hpp"

#include <utility>

namespace platform {

SPUStandardUpdaterController::SPUStandardUpdaterController(Starting starting,
                                                           SPUUpdaterDelegate* updaterDelegate,
                                                           UpdaterConfiguration configuration,
                                                           Workspace& workspace, QObject* parent)
    : QObject(parent),
      updaterDelegate_(updaterDelegate),
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
    windows_ = std::make_unique<UpdateWindows>(*session_, workspace_);
    session_->start();
}

void SPUStandardUpdaterController::checkForUpdates() {
    if (session_ != nullptr) {
        session_->checkForUpdates();
    }
}

} // namespace platform
