#include "updates/session/update_session.hpp"

#include "updates/feed/version_order.hpp"
#include "updates/session/safe_html.hpp"

#include <algorithm>
#include <utility>

namespace updates {
namespace {

using namespace std::chrono_literals;

constexpr auto longestWait = 1h;          // between two looks at a clock that may be set meanwhile
constexpr int startOfAsking = 2;          // the first start belongs to the program itself
constexpr auto longestSilence = 24h * 60; // without an answer, until the user is told
constexpr int failuresOfASilence = 30;    // where there never was one
constexpr int failuresOfAWeek = 7;        // of tries on schedule

/// Whether updates may be held back from the user: then even a failure on schedule is told, again
/// every week.
bool looksFrozen(const UpdateFailure& failure, const UpdateMemory& memory, UpdateMemory::Time now) {
    const bool isSilent = memory.lastCheck ? now - *memory.lastCheck >= longestSilence
                                           : memory.failures >= failuresOfASilence;
    return (failure.problem == UpdateProblem::feedExpired || isSilent) &&
           memory.failures % failuresOfAWeek == 1;
}

template<class T>
QString text(const T& utf8) {
    return QString::fromStdString(utf8);
}

constexpr std::size_t longestVersion = 40;

} // namespace

QString shownVersion(const std::string& version) {
    if (!isVersion(version)) {
        return QStringLiteral("?");
    }
    return version.size() <= longestVersion ? text(version)
                                            : text(version.substr(0, longestVersion - 1)) + u'…';
}

QString shownVersion(const AppcastItem& item) {
    return shownVersion(isVersion(item.shortVersionString) ? item.shortVersionString
                                                           : item.version);
}

UpdateSession::UpdateSession(UpdaterConfiguration configuration)
    : configuration_(std::move(configuration)), store_(configuration_.storePath) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &UpdateSession::act);
}

UpdateSession::~UpdateSession() {
    if (engine_ != nullptr) {
        engine_->want(0);
    }
    thread_.quit();
    thread_.wait();
    if (isStarted_ && !isConfirmed_) {
        confirmStart(configuration_.examine()); // the program has come up, and ends in order
    }
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
    isConfirmed_ = true;
    installation_ = installation;
    // What is managed by others, or was just built, is not asked about and remembers nothing.
    if (canInstall()) {
        store_.change([group = configuration_.random() % phaseGroups](UpdateMemory& memory) {
            ++memory.starts;
            memory.phaseGroup = memory.phaseGroup.value_or(group);
        });
        act();
    }
}

/// Sets the timer to the next check on schedule.
void UpdateSession::plan() {
    if (!isTrialOver_) {
        return;
    }
    const auto now = configuration_.now();
    if (const auto due = nextCheck(store_.memory(), now); due && canInstall()) {
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
    const UpdateMemory& memory = store_.refresh(); // another copy may have been told otherwise
    if (!memory.checksByItself && memory.starts >= startOfAsking) {
        show(scene::Permission{});
    } else if (const auto due = nextCheck(memory, now); due && *due <= now) {
        check(Asking::schedule);
    } else {
        plan();
    }
}

void UpdateSession::setChecksByItself(bool checks) {
    store_.change([checks](UpdateMemory& memory) { memory.checksByItself = checks; });
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
    store_.change([](UpdateMemory& memory) {
        memory.skippedVersion.clear();
        memory.skippedSignature.clear();
    });
    check(Asking::user);
}

void UpdateSession::check(Asking asking) {
    asking_ = asking;
    isChecking_ = true;
    if (asking == Asking::user) {
        show(scene::Checking{});
    }
    run([task = beginTask(), host = host(), asking](UpdateEngine& engine) {
        engine.check(task, host, asking);
    });
}

UpdateHost UpdateSession::host() const {
    const UpdateMemory& memory = store_.memory();
    return {.installedVersion = configuration_.version.toStdString(),
            .highestInstalledVersion = {}, // the engine looks
            .skippedVersion = memory.skippedVersion,
            .skippedSignature = memory.skippedSignature,
            .systemVersion = configuration_.systemVersion,
            .channels = configuration_.identity.channels,
            .phaseGroup = memory.phaseGroup.value_or(0),
            .feedSerial = memory.feedSerial,
            .now = configuration_.now()};
}

/// The engine and its thread are made when they are first needed.
UpdateEngine& UpdateSession::engine() {
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
    return *engine_;
}

/// Has the engine do something on its thread.
void UpdateSession::run(const std::function<void(UpdateEngine&)>& work) {
    QMetaObject::invokeMethod(&engine(), [&engine = engine(), work] { work(engine); });
}

/// Whatever is still said of the last one is late from here on.
quint64 UpdateSession::beginTask() {
    engine().want(++task_);
    return task_;
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
            store_.change([now = configuration_.now()](UpdateMemory& memory) {
                memory.lastTry = now;
                ++memory.failures;
            });
            plan();
            if (looksFrozen(*failure, store_.memory(), configuration_.now())) {
                fail(*failure, scene::Failed::While::looking);
            }
        } else {
            fail(*failure, scene::Failed::While::looking);
        }
        return;
    }
    store_.change([now = configuration_.now(), serial = outcome.feedSerial](UpdateMemory& memory) {
        memory.lastCheck = now;
        memory.lastTry.reset();
        memory.failures = 0;
        memory.feedSerial = std::max(memory.feedSerial, serial);
    });
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
        show(scene::ManagedElsewhere{shownVersion(item), installation_->management,
                                     text(installation_->packageName)});
        return;
    }
    const QUrl link = QUrl::fromEncoded(QByteArray::fromStdString(item.releaseNotesLink));
    const bool hasLink = link.scheme() == QStringLiteral("https");
    show(scene::Offer{.version = shownVersion(item),
                      .installedVersion = configuration_.version,
                      .isCritical = item.isCritical,
                      .hasFailedBefore = item.version == installation_->failedVersion,
                      .notes = hasLink ? QString() : text(safeHtml(item.description).html),
                      .isLoadingNotes = hasLink});
    if (hasLink) {
        run([task = beginTask(), link, now = configuration_.now()](UpdateEngine& engine) {
            engine.loadNotes(task, link, now);
        });
    }
}

void UpdateSession::hear(const ReleaseNotes& notes) {
    if (const auto* const shown = std::get_if<scene::Offer>(&scene_)) {
        scene::Offer complete = *shown;
        complete.isLoadingNotes = false;
        if (notes.safe.html.empty()) {
            complete.notes = text(safeHtml(item_.description).html);
        } else {
            complete.notes = text(notes.safe.html);
            complete.notesPage = notes.safe.isCut ? notes.page : QUrl();
        }
        show(complete);
    }
}

void UpdateSession::skip() {
    const auto* const shown = std::get_if<scene::Offer>(&scene_);
    if (shown != nullptr && !shown->isCritical) {
        store_.change([item = item_](UpdateMemory& memory) {
            memory.skippedVersion = item.version;
            memory.skippedSignature = item.enclosure.edSignature;
        });
        dismiss();
    }
}

void UpdateSession::install() {
    const auto* const shown = std::get_if<scene::Offer>(&scene_);
    if (shown == nullptr) {
        return;
    }
    show(scene::Downloading{shown->version, {0, item_.enclosure.length, 0}});
    const InstallOrder order{.helper = installHelper(*installation_),
                             .root = installation_->root,
                             .signature = item_.enclosure.edSignature,
                             .version = item_.version,
                             .installedVersion = installation_->runningVersion};
    run([task = beginTask(), enclosure = item_.enclosure, order, now = configuration_.now()](
            UpdateEngine& engine) { engine.prepare(task, enclosure, order, now); });
}

void UpdateSession::hear(const DownloadProgress& progress) {
    show(scene::Downloading{shownVersion(item_), progress});
}

void UpdateSession::hear(const UnpackingProgress& progress) {
    show(scene::Unpacking{shownVersion(item_), progress.share});
}

void UpdateSession::hear(ReadyToInstall) {
    show(scene::Ready{shownVersion(item_)});
}

void UpdateSession::relaunch() {
    if (std::holds_alternative<scene::Ready>(scene_)) {
        show(scene::Installing{shownVersion(item_)});
        run([](UpdateEngine& engine) { engine.install(); });
    }
}

void UpdateSession::hear(IsInstalled) {
    const std::filesystem::path program = launcher(*installation_);
    if (program.empty() || !configuration_.startProgram(program, configuration_.arguments)) {
        fail({UpdateProblem::relaunchFailed, {}});
        return;
    }
    show(scene::Nothing{});
    configuration_.quit();
}

void UpdateSession::hear(const UpdateFailure& failure) {
    fail(failure);
}

void UpdateSession::fail(const UpdateFailure& failure, scene::Failed::While doing) {
    run([](UpdateEngine& engine) { engine.cancel(); });
    show(scene::Failed{failure, doing});
}

void UpdateSession::dismiss() {
    if (std::holds_alternative<scene::Nothing>(scene_) ||
        std::holds_alternative<scene::Installing>(scene_)) {
        return;
    }
    beginTask();
    isChecking_ = false;
    run([](UpdateEngine& engine) { engine.cancel(); });
    show(scene::Nothing{});
    plan();
}

} // namespace updates
