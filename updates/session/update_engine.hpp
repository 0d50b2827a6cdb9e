#pragma once

#include "platform/updates/feed/update_choice.hpp"
#include "platform/updates/install/installation.hpp"
#include "platform/updates/session/archive_download.hpp"
#include "platform/updates/session/install_client.hpp"
#include "platform/updates/session/update_identity.hpp"

#include <QNetworkAccessManager>
#include <QObject>

#include <functional>
#include <memory>
#include <variant>

namespace platform {

/// What came of a check, and how the installation stood at that time.
struct CheckOutcome {
    std::variant<AppcastItem, UpToDate, NothingSuitable, UpdateFailure> answer;
    Installation installation;
};

struct ReleaseNotes {
    QByteArray html; ///< safe to show; empty where they could not be loaded
};
struct UnpackingProgress {
    double share = 0; ///< 0…1
};
struct ReadyToInstall {};
struct IsInstalled {};

using EngineEvent = std::variant<Installation, CheckOutcome, ReleaseNotes, DownloadProgress,
                                 UnpackingProgress, ReadyToInstall, IsInstalled, UpdateFailure>;

/// The work of an update: the network, reading the feed, leading the helper. It lives on a thread
/// of its own and does one task at a time; whatever is started ends what was under way, and
/// `cancel` does so without a word. What it has to say it says with the number of the task, so that
/// nobody takes a late word of one task for that of another.
class UpdateEngine final : public QObject {
    Q_OBJECT

  public:
    /// `examine` finds out how the installation stands.
    UpdateEngine(UpdateIdentity identity, UpdateLimits limits,
                 std::function<Installation()> examine);
    ~UpdateEngine() override;

    /// The program has started: confirms it, and removes what broken updates left behind. Tells the
    /// `Installation` for task 0, and disturbs no other.
    void confirm();
    /// Ends with a `CheckOutcome`. What the host says of the installation is looked up afresh.
    void check(quint64 task, const UpdateHost& host, Asking asking);
    /// Ends with `ReleaseNotes`.
    void loadNotes(quint64 task, const QUrl& url, std::chrono::system_clock::time_point now);
    /// Downloads an archive, then has it verified and unpacked: ends with `ReadyToInstall` or an
    /// `UpdateFailure`.
    void prepare(quint64 task, const AppcastEnclosure& enclosure, const InstallOrder& order,
                 std::chrono::system_clock::time_point now);
    /// What is ready: the same task goes on, and ends with `IsInstalled` or an `UpdateFailure`.
    void install();
    void cancel();

  signals:
    void happened(quint64 task, const platform::EngineEvent& event);

  private:
    /// Gets a document of a bounded size; `end` is called once.
    void fetchDocument(const HttpsRequest& request,
                       std::function<void(const std::optional<UpdateFailure>&)> end);
    void unpack(const InstallOrder& order);
    void begin(quint64 task, std::chrono::system_clock::time_point now);
    void tell(EngineEvent event) { emit happened(task_, std::move(event)); }

    const UpdateIdentity identity_;
    const UpdateLimits limits_;
    const std::function<Installation()> examine_;
    quint64 task_ = 0;
    HttpsClient client_;
    std::unique_ptr<QNetworkAccessManager> network_; // made on the engine's own thread
    std::unique_ptr<HttpsFetch> fetch_;
    QByteArray document_;
    QByteArray documentType_;
    std::unique_ptr<ArchiveDownload> download_;
    std::unique_ptr<InstallClient> installer_;
};

} // namespace platform
