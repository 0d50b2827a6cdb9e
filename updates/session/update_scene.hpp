#pragma once

#include "platform/updates/feed/appcast_item.hpp"
#include "platform/updates/feed/update_choice.hpp"
#include "platform/updates/install/installation.hpp"
#include "platform/updates/session/archive_download.hpp"
#include "platform/updates/session/update_problem.hpp"

#include <optional>
#include <variant>

namespace platform {

/// What there is to show of an update: one scene at a time.
namespace scene {

struct Nothing {};

/// May the program look for updates by itself?
struct Permission {};

struct Checking {};

struct UpToDate {
    QString version; ///< the running one
    bool canCheckByItself = false;
};

struct Unsuitable {
    NothingSuitable reason;
};

/// There is an update, but it is not for this program to install it.
struct ManagedElsewhere {
    QString version; ///< the new one
    Management management;
    QString packageName; ///< where a package manager has one
};

struct Offer {
    QString version;
    QString installedVersion;
    bool isCritical = false;
    bool hasFailedBefore = false; ///< it was installed here, did not start, and was taken back
    QString notes;                ///< safe rich text; nothing while it is loading
    bool isLoadingNotes = false;
};

struct Downloading {
    QString version;
    DownloadProgress progress;
};

/// The signature is being checked, then the archive is being unpacked.
struct Unpacking {
    QString version;
    double share = 0; ///< 0…1
};

struct Ready {
    QString version;
};

struct Installing {
    QString version;
};

struct Failed {
    UpdateFailure failure;
};

} // namespace scene

using UpdateScene =
    std::variant<scene::Nothing, scene::Permission, scene::Checking, scene::UpToDate,
                 scene::Unsuitable, scene::ManagedElsewhere, scene::Offer, scene::Downloading,
                 scene::Unpacking, scene::Ready, scene::Installing, scene::Failed>;

} // namespace platform
