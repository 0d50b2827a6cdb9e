#include "platform/updates/session/update_session.hpp"

#include "platform/updates/session/safe_html.hpp"

#include <algorithm>
#include <utility>

namespace platform {
namespace {

using namespace std::chrono_literals;

constexpr auto longestWait = 1h; // between two looks at a clock that may be set meanwhile
constexpr int startOfAsking = 2; // the first start belongs to the program itself

template<class T>
QString text(const T& utf8) {
    return QString::fromStdString(utf8);
}

} // namespace

UpdateSession::UpdateSession(UpdaterConfiguration configuration)
    : configuration_(std::move(configuration)),
      store_(configuration_.storePath),
      memory_(store_.memory()) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &UpdateSession::act);
}

UpdateSession::~UpdateSession() {
    if (isStarted_ && !isTrialOver_) {
        confirmStart(configuration_.examine()); // the program has come up, and ends in order
    }
    thread_.quit();
    thread_.wait();
}

bool UpdateSession::canInstall() const {
    return installation_ && installation_->management == Management::itself &&
           !configuration_.identity.publicKey.empty();
}

void UpdateSession::start() {
    if (!std::exchange(isStarted_, true)) {
        timer_.start(configuration_.trial);
    }
}

void UpdateSession::hear(const Installation& installation) {
    installation_ = installation;
    // What is managed by others, or was just built, is not asked about and remembers nothing.
    if (canInstall()) {
        ++memory_.starts;
        if (!memory_.phaseGroup) {
            memory_.phaseGroup = configuration_.random() % phaseGroups;
        }
        keep();
        act();
    }
}

/// Sets the timer to the next check on schedule.
void UpdateSession::plan() {
    if (!isTrialOver_) {
        return;
    }
    const auto now = configuration_.now();
    if (const auto due = nextCheck(memory_, now); due && canInstall()) {
        const auto wait =
            std::clamp<std::chrono::system_clock::duration>(*due - now, 1s, longestWait);
        timer_.start(std::chrono::duration_cast<std::chrono::milliseconds>(wait));
    } else {
        timer_.stop();
    }
}

/// It is time for something to happen by itself, unless the user is at something else.
void UpdateSession::act() {
    if (!std::exchange(isTrialOver_, true)) {
        run([](UpdateEngine& engine) { engine.confirm(); });
        return;
    }
    const auto now = configuration_.now();
    if (!std::holds_alternative<scene::Nothing>(scene_) || isChecking_) {
        timer_.start(longestWait);
        return;
    }
    if (!memory_.checksByItself && memory_.starts >= startOfAsking) {
        show(scene::Permission{});
    } else if (const auto due = nextCheck(memory_, now); due && *due <= now) {
        check(Asking::schedule);
    } else {
        plan();
    }
}

void UpdateSession::setChecksByItself(bool checks) {
    memory_.checksByItself = checks;
    keep();
    if (std::holds_alternative<scene::Permission>(scene_)) {
        show(scene::Nothing{});
    }
    plan();
}

void UpdateSession::checkForUpdates() {
    const bool isBusy = std::visit(
        [](const auto& shown) {
            using Scene = std::decay_t<decltype(shown)>;
            return !std::is_same_v<Scene, scene::Nothing> &&
                   !std::is_same_v<Scene, scene::Permission> &&
                   !std::is_same_v<Scene, scene::UpToDate> &&
                   !std::is_same_v<Scene, scene::Unsuitable> &&
                   !std::is_same_v<Scene, scene::ManagedElsewhere> &&
                   !std::is_same_v<Scene, scene::Failed>;
        },
        scene_);
    if (isBusy) {
        emit attentionWanted();
        return;
    }
    // Whoever asks wants to know of every version.
    memory_.skippedVersion.clear();
    keep();
    check(Asking::user);
}

void UpdateSession::check(Asking asking) {
    asking_ = asking;
    isChecking_ = true;
    if (asking == Asking::user) {
        show(scene::Checking{});
    }
    ++task_;
    run([task = task_, host = host(), asking](UpdateEngine& engine) {
        engine.check(task, host, asking);
    });
}

UpdateHost UpdateSession::host() const {
    return {.installedVersion = configuration_.version.toStdString(),
            .highestInstalledVersion = {}, // the engine looks
            .skippedVersion = memory_.skippedVersion,
            .systemVersion = configuration_.systemVersion,
            .os = "linux",
            .architecture = QSysInfo::buildCpuArchitecture().toStdString(),
            .channels = configuration_.identity.channels,
            .phaseGroup = memory_.phaseGroup.value_or(0),
            .now = configuration_.now()};
}

/// Has the engine do something on its thread; both are made when they are first needed.
void UpdateSession::run(const std::function<void(UpdateEngine&)>& work) {
    if (engine_ == nullptr) {
        engine_ = new UpdateEngine(configuration_.identity, configuration_.limits,
                                   configuration_.examine);
        engine_->moveToThread(&thread_);
        connect(&thread_, &QThread::finished, engine_, &QObject::deleteLater);
        connect(engine_, &UpdateEngine::happened, this,
                qOverload<quint64, const EngineEvent&>(&UpdateSession::hear));
        thread_.setObjectName(QStringLiteral("updates"));
        thread_.start(QThread::LowPriority);
    }
    QMetaObject::invokeMethod(engine_, [engine = engine_, work] { work(*engine); });
}

void UpdateSession::show(UpdateScene scene) {
    scene_ = std::move(scene);
    emit sceneChanged(scene_);
}

void UpdateSession::hear(quint64 task, const EngineEvent& event) {
    // How the installation stands is worth knowing even when a check has come between.
    if (task == task_ || std::holds_alternative<Installation>(event)) {
        std::visit([this](const auto& one) { hear(one); }, event);
    }
}

void UpdateSession::hear(const CheckOutcome& outcome) {
    isChecking_ = false;
    installation_ = outcome.installation;
    if (const auto* const failure = std::get_if<UpdateFailure>(&outcome.answer)) {
        if (asking_ == Asking::schedule) {
            memory_.lastTry = configuration_.now();
            ++memory_.failures;
            keep();
            plan();
        } else {
            fail(*failure);
        }
        return;
    }
    memory_.lastCheck = configuration_.now();
    memory_.lastTry.reset();
    memory_.failures = 0;
    keep();
    plan();
    if (const auto* const item = std::get_if<AppcastItem>(&outcome.answer)) {
        // One that did not start is not offered by itself again.
        if (asking_ == Asking::user || item->version != installation_->failedVersion) {
            offer(*item);
        }
    } else if (asking_ == Asking::schedule) {
        // Nothing to tell.
    } else if (const auto* const reason = std::get_if<NothingSuitable>(&outcome.answer)) {
        show(scene::Unsuitable{*reason});
    } else {
        show(scene::UpToDate{configuration_.version, canInstall()});
    }
}

void UpdateSession::offer(const AppcastItem& item) {
    item_ = item;
    if (!canInstall()) {
        show(scene::ManagedElsewhere{text(item.displayVersion()), installation_->management,
                                     text(installation_->packageName)});
        return;
    }
    const QUrl link = QUrl::fromEncoded(QByteArray::fromStdString(item.releaseNotesLink));
    const bool hasLink = link.scheme() == QStringLiteral("https");
    show(scene::Offer{.version = text(item.displayVersion()),
                      .installedVersion = configuration_.version,
                      .isCritical = item.isCritical,
                      .hasFailedBefore = item.version == installation_->failedVersion,
                      .notes = hasLink ? QString() : text(safeHtml(item.description)),
                      .isLoadingNotes = hasLink});
    if (hasLink) {
        ++task_;
        run([task = task_, link, now = configuration_.now()](UpdateEngine& engine) {
            engine.loadNotes(task, link, now);
        });
    }
}

void UpdateSession::hear(const ReleaseNotes& notes) {
    if (const auto* const shown = std::get_if<scene::Offer>(&scene_)) {
        scene::Offer complete = *shown;
        complete.isLoadingNotes = false;
        complete.notes = notes.html.isEmpty() ? text(safeHtml(item_.description))
                                              : QString::fromUtf8(notes.html);
        show(complete);
    }
}

void UpdateSession::skip() {
    const auto* const shown = std::get_if<scene::Offer>(&scene_);
    if (shown != nullptr && !shown->isCritical) {
        memory_.skippedVersion = item_.version;
        keep();
        dismiss();
    }
}

void UpdateSession::install() {
    const auto* const shown = std::get_if<scene::Offer>(&scene_);
    if (shown == nullptr) {
        return;
    }
    show(scene::Downloading{shown->version, {0, item_.enclosure.length, 0}});
    ++task_;
    const InstallOrder order{.helper = installHelper(*installation_),
                             .root = installation_->root,
                             .signature = item_.enclosure.edSignature,
                             .version = item_.version,
                             .installedVersion = installation_->runningVersion};
    run([task = task_, enclosure = item_.enclosure, order, now = configuration_.now()](
            UpdateEngine& engine) { engine.prepare(task, enclosure, order, now); });
}

void UpdateSession::hear(const DownloadProgress& progress) {
    show(scene::Downloading{text(item_.displayVersion()), progress});
}

void UpdateSession::hear(const UnpackingProgress& progress) {
    show(scene::Unpacking{text(item_.displayVersion()), progress.share});
}

void UpdateSession::hear(ReadyToInstall) {
    show(scene::Ready{text(item_.displayVersion())});
}

void UpdateSession::relaunch() {
    if (std::holds_alternative<scene::Ready>(scene_)) {
        show(scene::Installing{text(item_.displayVersion())});
        run([](UpdateEngine& engine) { engine.install(); });
    }
}

void UpdateSession::hear(IsInstalled) {
    const QString program = text(launcher(*installation_).string());
    if (program.isEmpty() || !configuration_.startProgram(program, configuration_.arguments)) {
        fail({UpdateProblem::relaunchFailed, {}});
        return;
    }
    show(scene::Nothing{});
    configuration_.quit();
}

void UpdateSession::hear(const UpdateFailure& failure) {
    fail(failure);
}

void UpdateSession::fail(const UpdateFailure& failure) {
    run([](UpdateEngine& engine) { engine.cancel(); });
    show(scene::Failed{failure});
}

void UpdateSession::dismiss() {
    if (std::holds_alternative<scene::Nothing>(scene_) ||
        std::holds_alternative<scene::Installing>(scene_)) {
        return;
    }
    ++task_; // whatever is still said of it is late
    isChecking_ = false;
    if (engine_ != nullptr) {
        run([](UpdateEngine& engine) { engine.cancel(); });
    }
    show(scene::Nothing{});
    plan();
}

} // namespace platform
