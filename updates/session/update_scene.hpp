#pragma once

#include "updates/feed/appcast_item.hpp"
#include "updates/feed/update_choice.hpp"
#include "updates/install/installation.hpp"
#include "updates/session/archive_download.hpp"
#include "updates/session/update_problem.hpp"

#include <QUrl>

#include <variant>

namespace updates {

/// A version as it is shown: one short line, whatever a feed says. Any thread.
[[nodiscard]] QString shownVersion(const std::string& version);
/// The same of what people call an item's version.
[[nodiscard]] QString shownVersion(const AppcastItem& item);

/// What there is to show of an update: one scene at a time. Values.
namespace scene {

/// No dialog is shown.
struct Nothing {};

/// May the program look for updates by itself?
struct Permission {};

/// The feed is being looked at.
struct Checking {};

/// There is nothing newer.
struct UpToDate {
    QString version; ///< the running one
    bool canCheckByItself = false;
};

/// There is something newer, but not for this installation.
struct Unsuitable {
    NothingSuitable reason;
};

/// There is an update, but it is not for this program to install it.
struct ManagedElsewhere {
    QString version; ///< the new one
    Management management;
    QString packageName; ///< where a package manager has one
};

/// There is a new version; the user decides.
struct Offer {
    QString version;
    QString installedVersion;
    bool isCritical = false;
    bool hasFailedBefore = false; ///< it was installed here, did not start, and was taken back
    QString notes;                ///< safe rich text; nothing while it is loading
    bool isLoadingNotes = false;
    QUrl notesPage = {}; ///< where the rest of the notes is; empty: this is all
};

/// The archive is on its way.
struct Downloading {
    QString version;
    DownloadProgress progress;
};

/// The signature is being checked, then the archive is being unpacked.
struct Unpacking {
    QString version;
    double share = 0; ///< 0…1
};

/// The version is unpacked and waits for the last word.
struct Ready {
    QString version;
};

/// The version is being put in place.
struct Installing {
    QString version;
};

/// It ended with a problem.
struct Failed {
    enum class While { looking, updating };
    UpdateFailure failure;
    While doing = While::updating; ///< looking: nobody knows whether there is an update
};

} // namespace scene

/// One of the scenes. A value.
using UpdateScene =
    std::variant<scene::Nothing, scene::Permission, scene::Checking, scene::UpToDate,
                 scene::Unsuitable, scene::ManagedElsewhere, scene::Offer, scene::Downloading,
                 scene::Unpacking, scene::Ready, scene::Installing, scene::Failed>;

} // namespace updates
