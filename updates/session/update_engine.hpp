#pragma once

#include "updates/feed/signed_feed.hpp"
#include "updates/feed/update_choice.hpp"
#include "updates/install/installation.hpp"
#include "updates/session/archive_download.hpp"
#include "updates/session/https_client.hpp"
#include "updates/session/install_client.hpp"
#include "updates/session/safe_html.hpp"
#include "updates/session/update_identity.hpp"

#include <QObject>

#include <atomic>
#include <functional>
#include <memory>
#include <variant>

namespace updates {

/// What came of a check, and how the installation stood at that time.
struct CheckOutcome {
    std::variant<AppcastItem, UpToDate, NothingSuitable, UpdateFailure> answer;
    Installation installation;
    std::uint64_t feedSerial = 0; ///< of the feed that was believed; 0: none was
};

struct ReleaseNotes {
    SafeHtml safe; ///< empty where they could not be loaded
    QUrl page;     ///< that they come from
};
/// How far the unpacking has come.
struct UnpackingProgress {
    double share = 0; ///< 0…1
};
/// The new version is unpacked and may be installed.
struct ReadyToInstall {};
struct IsInstalled {};

/// What the engine says of its work.
using EngineEvent = std::variant<Installation, CheckOutcome, ReleaseNotes, DownloadProgress,
                                 UnpackingProgress, ReadyToInstall, IsInstalled, UpdateFailure>;

/// The work of an update: the network, reading the feed, leading the helper. It lives on a thread
/// of its own, which its work blocks, and does one task at a time. What it has to say it says with
/// the number of the task, so that nobody takes a late word of one task for that of another.
class UpdateEngine final : public QObject {
    Q_OBJECT

  public:
    /// `examine` finds out how the installation stands.
    UpdateEngine(UpdateIdentity identity, UpdateLimits limits,
                 std::function<Installation()> examine);

    /// No task but this one is worth going on with from now on; 0: none. Any thread.
    void want(quint64 task);

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
    /// Throws away what is ready.
    void cancel() { installer_.reset(); }

  signals:
    void happened(quint64 task, const updates::EngineEvent& event);

  private:
    struct Document {
        QByteArray text;
        QByteArray type; // of media
    };
    [[nodiscard]] std::variant<Document, UpdateFailure>
    fetch(HttpsRequest request, std::chrono::system_clock::time_point now) const;
    /// The feed, which the maker vouches for.
    [[nodiscard]] std::variant<SignedAppcast, UpdateFailure>
    fetchFeed(const UpdateHost& host) const;
    struct FeedRefusal {
        FeedFault fault;
        bool isWebPage; ///< in place of the feed
    };
    /// One try.
    [[nodiscard]] std::variant<SignedAppcast, UpdateFailure, FeedRefusal>
    fetchFeedOnce(const UpdateHost& host) const;
    void unpack(const InstallOrder& order, const platform::SealedFile& archive);
    [[nodiscard]] bool begin(quint64 task);
    void tell(EngineEvent event) { emit happened(task_, std::move(event)); }

    const UpdateIdentity identity_;
    const UpdateLimits limits_;
    const std::function<Installation()> examine_;
    HttpsClient client_;
    std::atomic<quint64> wanted_ = 0;
    quint64 task_ = 0;
    std::unique_ptr<InstallClient> installer_;
};

} // namespace updates
