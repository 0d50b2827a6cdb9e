#pragma once

#include "platform/updates/session/update_scene.hpp"

#include <QString>

namespace platform {

/// What a dialog says: what is the matter, and what follows or can be done.
struct UpdateMessage {
    QString title;
    QString text;
};

/// `product` is the program's name.
[[nodiscard]] UpdateMessage messageOf(const UpdateFailure& failure, const QString& product);
[[nodiscard]] UpdateMessage messageOf(const scene::UpToDate& scene, const QString& product);
[[nodiscard]] UpdateMessage messageOf(const scene::NothingSuitable& scene, const QString& product);
[[nodiscard]] UpdateMessage messageOf(const scene::ManagedElsewhere& scene, const QString& product);

} // namespace platform
