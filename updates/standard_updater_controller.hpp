#pragma once

#include "platform/ui/workspace.hpp"
#include "updates/dialogs/dialog_style.hpp"
#include "updates/session/update_session.hpp"

#include <QObject>
#include <QString>

#include <memory>

namespace updates {

class SPUStandardUpdaterController;
class UpdateWindows;

/// Answers what the updater asks of the program. It outlives the controller. Main thread.
class SPUUpdaterDelegate {
  public:
    virtual ~SPUUpdaterDelegate() = default;
    /// The address of the update feed, an appcast document.
    [[nodiscard]] virtual QString
    feedURLString(const SPUStandardUpdaterController& updater) const = 0;
};

/// Owns the updater and its standard windows. It is not started by being made unless asked to.
///
/// Once it is started, it asks the user whether it may look for updates by itself (on the second
/// start), and then does so once a day. Nothing is downloaded before the user wants it, and nothing
/// is installed that the maker has not signed. A copy of the program that others look after is only
/// told that there is an update. Main thread.
class SPUStandardUpdaterController final : public QObject {
    Q_OBJECT

  public:
    enum class Starting { now, later };

    /// The feed's address in the configuration comes from the delegate. Without a configuration it
    /// checks when it is told to, and remembers nothing.
    /// `style` is the program's own.
    SPUStandardUpdaterController(Starting starting, SPUUpdaterDelegate* updaterDelegate,
                                 DialogStyle style, UpdaterConfiguration configuration = {},
                                 platform::Workspace& workspace = platform::Workspace::shared(),
                                 QObject* parent = nullptr);
    ~SPUStandardUpdaterController() override;

    void startUpdater(); ///< does nothing when it has started
    [[nodiscard]] bool isStarted() const { return session_ != nullptr; }

    /// A check on the user's command; always answers. Does nothing before the start.
    void checkForUpdates();

    /// Null before the start.
    [[nodiscard]] UpdateSession* session() const { return session_.get(); }

  private:
    SPUUpdaterDelegate* updaterDelegate_;
    const DialogStyle style_;
    UpdaterConfiguration configuration_;
    platform::Workspace& workspace_;
    std::unique_ptr<UpdateSession> session_;
    std::unique_ptr<UpdateWindows> windows_;
};

} // namespace updates
