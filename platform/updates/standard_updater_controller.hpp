#pragma once

#include <QObject>
#include <QString>

namespace platform {

class SPUStandardUpdaterController;

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
/// This version of the program does not install updates by itself: a check asked for by the user
/// says so and offers the feed's site, and nothing is checked on a schedule.
class SPUStandardUpdaterController final : public QObject {
    Q_OBJECT

  public:
    enum class Starting { now, later };

    SPUStandardUpdaterController(Starting starting, SPUUpdaterDelegate* updaterDelegate,
                                 QObject* parent = nullptr);

    void startUpdater(); ///< does nothing when it has started
    [[nodiscard]] bool isStarted() const { return isStarted_; }

    /// A check on the user's command; always answers. Does nothing before the start.
    void checkForUpdates();

  private:
    SPUUpdaterDelegate* updaterDelegate_;
    bool isStarted_ = false;
};

} // namespace platform
