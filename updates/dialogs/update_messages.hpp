#pragma once

#include "updates/session/update_scene.hpp"

#include <QString>

#include <optional>

namespace updates {

/// What a person can do about it at once.
enum class Remedy { none, again, website };

/// What a dialog says: what is the matter, and what follows or can be done.
struct UpdateMessage {
    QString title;
    QString text;
    Remedy remedy = Remedy::none;
};

/// How a check or an update ended; nothing for a scene that is no end. Every failure has a text of
/// its own that says what to do. `product` is the program's name. Main thread.
[[nodiscard]] std::optional<UpdateMessage> messageOf(const UpdateScene& scene,
                                                     const QString& product);

} // namespace updates
