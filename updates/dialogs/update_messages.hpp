#pragma once

#include "platform/updates/session/update_scene.hpp"

#include <QString>

#include <optional>

namespace platform {

/// What a person can do about it at once.
enum class Remedy { none, again, website };

/// What a dialog says: what is the matter, and what follows or can be done.
struct UpdateMessage {
    QString title;
    QString text;
    Remedy remedy = Remedy::none;
};

/// Every failure has a text of its own that says what to do. `product` is the program's name.
[[nodiscard]] UpdateMessage messageOf(const UpdateFailure& failure, const QString& product);
/// How a check or an update ended; nothing for a scene that is no end.
[[nodiscard]] std::optional<UpdateMessage> messageOf(const UpdateScene& scene,
                                                     const QString& product);

} // namespace platform
