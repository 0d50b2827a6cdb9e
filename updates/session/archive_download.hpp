#pragma once

#include "platform/system/sealed_file.hpp"
#include "updates/session/https_client.hpp"

#include <deque>
#include <utility>
#include <variant>

namespace updates {

/// How far a download has come.
struct DownloadProgress {
    std::uint64_t received = 0; ///< bytes
    std::uint64_t length = 0;   ///< bytes
    double bytesPerSecond = 0;  ///< over the last seconds; 0 while it is not known

    bool operator==(const DownloadProgress&) const = default;
};

/// Gets an archive of a known length into a private copy in memory that nobody else can write. When
/// the connection is cut it goes on where it was, or begins anew where the server has another
/// archive by now or cannot go on. Never holds a byte more than the length. One download per
/// object, on the client's thread.
class ArchiveDownload {
  public:
    /// `progress` is called some ten times a second. The client outlives it.
    ArchiveDownload(const HttpsClient& client, const UpdateLimits& limits,
                    std::function<void(const DownloadProgress&)> progress);

    /// The sealed copy. Blocks; ends as soon as the client's work is no longer wanted.
    [[nodiscard]] std::variant<platform::SealedFile, UpdateFailure>
    get(const QUrl& url, std::uint64_t length, HttpsClient::Time now);

  private:
    using MaybeFailure = std::optional<UpdateFailure>;
    using Clock = std::chrono::steady_clock;
    MaybeFailure attempt(const QUrl& url, HttpsClient::Time now);
    MaybeFailure beginAnew();
    MaybeFailure take(const HttpsAnswer& answer);
    MaybeFailure take(std::span<const std::byte> bytes);
    void tell();

    const HttpsClient& client_;
    const UpdateLimits limits_;
    const std::function<void(const DownloadProgress&)> progress_;
    Clock::time_point end_;
    std::uint64_t length_ = 0;
    platform::SealedFile archive_;
    std::uint64_t received_ = 0;
    QByteArray validator_; // of what is in the archive so far; empty: it cannot go on
    bool isLengthTold_ = false;
    std::deque<std::pair<Clock::time_point, std::uint64_t>> samples_; // bytes of this run
    Clock::time_point toldAt_;
};

} // namespace updates
