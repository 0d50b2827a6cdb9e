#pragma once

#include "updates/install/installation.hpp"
#include "updates/session/update_engine.hpp"
#include "updates/session/update_scene.hpp"
#include "updates/session/update_store.hpp"

#include <QObject>
#include <QThread>
#include <QTimer>

#include <filesystem>
#include <functional>

namespace updates {

/// What an updater is given: whose updates, for which installation, and its surroundings. The
/// functions are called on the main thread where nothing else is said.
struct UpdaterConfiguration {
    UpdateIdentity identity;
    QString version; ///< the running one
    /// Of this run, byte for byte, for the next one; without the program's name.
    std::vector<std::string> arguments;
    std::string systemVersion;
    QString storePath; ///< where the updater remembers; empty: nowhere
    UpdateLimits limits;
    /// After the start; a program that runs so long has started.
    std::chrono::milliseconds trial{3000};

    std::function<std::chrono::system_clock::time_point()> now = [] {
        return std::chrono::system_clock::now();
    };
    /// How the installation stands. Called on any thread.
    std::function<Installation()> examine = [] { return Installation(); };
    /// Any 32 bits.
    std::function<std::uint32_t()> random = [] { return 0U; };
    /// Starts a program that outlives this one; false when it cannot be started.
    std::function<bool(const std::filesystem::path& program,
                       const std::vector<std::string>& arguments)>
        startProgram = [](const auto&, const auto&) { return false; };
    std::function<void()> quit = [] {};
};

/// The course of an update, apart from looks: when to check, what to show, what follows from what
/// the user decides. Everything that takes time happens on another thread. Main thread.
class UpdateSession final : public QObject {
    Q_OBJECT

  public:
    explicit UpdateSession(UpdaterConfiguration configuration);
    ~UpdateSession() override;

    /// After the trial: confirms that this version has started, counts the start, and from then on
    /// asks and checks when it is time.
    void start();

    /// A check on the user's command: it always leads to a scene. While the user has to decide
    /// something else, or an update is under way, that is what is shown again.
    void checkForUpdates();

    [[nodiscard]] const UpdateScene& scene() const { return scene_; }
    [[nodiscard]] const UpdaterConfiguration& configuration() const { return configuration_; }

    /// Whether it checks by itself, once a day.
    [[nodiscard]] bool checksByItself() const {
        return store_.memory().checksByItself.value_or(false);
    }
    void setChecksByItself(bool checks);

    // What the user decides. Each counts only in the scene that offers it.
    void skip();     ///< Offer: this version is not offered again on schedule
    void install();  ///< Offer: downloads and prepares it
    void relaunch(); ///< Ready: installs it and starts it in place of this program
    /// Ends the scene: later, cancel, close. What is being installed goes on.
    void dismiss();

  signals:
    void sceneChanged(const updates::UpdateScene& scene);
    /// What is shown already is what the user asks for.
    void attentionWanted();

  private:
    void show(UpdateScene scene);
    void plan();
    void act();
    void check(Asking asking);
    quint64 beginTask();
    UpdateEngine& engine();
    void run(const std::function<void(UpdateEngine&)>& work);
    void hear(quint64 task, const EngineEvent& event);
    void hear(const Installation& installation);
    void hear(const CheckOutcome& outcome);
    void hear(const ReleaseNotes& notes);
    void hear(const DownloadProgress& progress);
    void hear(const UnpackingProgress& progress);
    void hear(ReadyToInstall);
    void hear(IsInstalled);
    void hear(const UpdateFailure& failure);
    void offer(const AppcastItem& item);
    void fail(const UpdateFailure& failure,
              scene::Failed::While doing = scene::Failed::While::updating);
    [[nodiscard]] UpdateHost host() const;
    /// Whether this copy may install updates; otherwise it only tells of them.
    [[nodiscard]] bool canInstall() const;

    const UpdaterConfiguration configuration_;
    UpdateStore store_;
    UpdateScene scene_;
    std::optional<Installation> installation_; // once it is known
    AppcastItem item_;                         // of an offer and what follows it
    bool isStarted_ = false;
    bool isTrialOver_ = false;
    bool isConfirmed_ = false;
    bool isChecking_ = false; // shown or in silence
    Asking asking_ = Asking::schedule;
    quint64 task_ = 0;
    QTimer timer_;
    QThread thread_;
    UpdateEngine* engine_ = nullptr; // lives on the thread, and ends with it
};

} // namespace updates
