#pragma once

#include "platform/system/sealed_file.hpp"
#include "platform/updates/session/https_fetch.hpp"

#include <QElapsedTimer>
#include <QUrl>

#include <deque>
#include <utility>

namespace platform {

struct DownloadProgress {
    std::uint64_t received = 0; ///< bytes
    std::uint64_t length = 0;   ///< bytes
    double bytesPerSecond = 0;  ///< over the last seconds; 0 while it is not known

    bool operator==(const DownloadProgress&) const = default;
};

/// Gets an archive of a known length into a private copy in memory that nobody else can write. When
/// the connection is cut it goes on where it was, or begins anew where the server has another
/// archive by now or cannot go on. Never holds a byte more than the length; nothing is left when
/// it fails. On the thread of the client's network.
class ArchiveDownload final : public QObject {
    Q_OBJECT

  public:
    ArchiveDownload(const HttpsClient& client, const UpdateLimits& limits,
                    QObject* parent = nullptr);

    void start(const QUrl& url, std::uint64_t length);

    /// The sealed copy, after it has finished without a failure.
    [[nodiscard]] SealedFile takeArchive() { return std::move(archive_); }

  signals:
    void progressed(const platform::DownloadProgress& progress); ///< some ten times a second
    void finished(const std::optional<platform::UpdateFailure>& failure);

  private:
    void attempt();
    [[nodiscard]] bool beginAnew();
    std::optional<UpdateFailure> take(const HttpsAnswer& answer);
    std::optional<UpdateFailure> take(std::span<const std::byte> bytes);
    void endAttempt(const std::optional<UpdateFailure>& failure);
    void tell();
    void finish(const std::optional<UpdateFailure>& failure);

    const HttpsClient& client_;
    const UpdateLimits& limits_;
    QUrl url_;
    std::uint64_t length_ = 0;
    SealedFile archive_;
    std::uint64_t received_ = 0;
    QByteArray validator_; // of what is in the archive so far; empty: it cannot go on
    bool isLengthTold_ = false;
    std::unique_ptr<HttpsFetch> fetch_;
    std::uint64_t furthest_ = 0; // ever received before this attempt
    int attempts_ = 0;
    int fruitlessAttempts_ = 0;
    QTimer pause_;
    QElapsedTimer clock_;
    std::chrono::milliseconds wholeTime_{};
    std::deque<std::pair<qint64, std::uint64_t>> samples_; // milliseconds, bytes of this run
    qint64 toldAt_ = 0;
};

} // namespace platform
