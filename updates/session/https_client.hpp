#pragma once

#include "updates/session/update_limits.hpp"
#include "updates/session/update_problem.hpp"

#include <QByteArray>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace updates {

/// The headers of the final answer, which is 200 or 206.
struct HttpsAnswer {
    bool isPartial = false;
    std::optional<std::uint64_t> firstByte; ///< of a partial one
    std::optional<std::uint64_t> length;    ///< of this body
    std::optional<std::uint64_t> wholeLength;
    QByteArray contentType; ///< lower case, without parameters
    QByteArray validator;   ///< a strong entity tag or else the date of the last change
};

/// One document to get. A value; what it calls is called on the thread that gets it.
struct HttpsRequest {
    QUrl url;
    QByteArray accept = "*/*";
    std::uint64_t largest = 0;             ///< bytes of the body
    std::chrono::milliseconds wholeTime{}; ///< from the first request to the last byte
    /// To go on from here: the first byte wanted, and the validator of what is there already.
    std::uint64_t offset = 0;
    QByteArray validator = {};
    /// Called with the headers, then with each piece of the body; a failure refuses it.
    std::function<std::optional<UpdateFailure>(const HttpsAnswer&)> onAnswer = {};
    std::function<std::optional<UpdateFailure>(std::span<const std::byte>)> onBytes = {};
};

/// Gets documents over https and nothing else, one at a time: redirects are followed to https only,
/// everything is bounded in size and time, and what comes is handed on at once, decompressed by
/// nobody. It blocks: one thread, not the main one, but for `wake`.
class HttpsClient {
  public:
    using Time = std::chrono::system_clock::time_point;

    /// `trustAnchors` in PEM are the only certificates that are trusted; empty: those of the
    /// system. No clock that is right shows a time before `builtAt`.
    HttpsClient(QByteArray trustAnchors, Time builtAt, const UpdateLimits& limits);
    ~HttpsClient();

    /// Asked again and again while something is under way; false ends it. Any thread's news become
    /// known at once with `wake`.
    std::function<bool()> isWanted = [] { return true; };
    void wake() const; ///< any thread

    /// Nothing: the body is complete as far as the server told its length. `now` is what the user's
    /// clock shows.
    [[nodiscard]] std::optional<UpdateFailure> get(const HttpsRequest& request, Time now) const;
    /// Waits, unless it is no longer wanted.
    void pause(std::chrono::milliseconds time) const;

  private:
    struct Transfer;
    [[nodiscard]] std::optional<UpdateFailure> ask(Transfer& transfer) const;

    struct CloseMulti {
        void operator()(void* multi) const;
    };
    const QByteArray trustAnchors_;
    const Time builtAt_;
    const UpdateLimits limits_;
    const std::unique_ptr<void, CloseMulti> multi_;
};

} // namespace updates
