#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <chrono>
#include <string>
#include <vector>

namespace updates {

/// Whose updates a program takes, and from where. Compiled in: nothing at run time changes it.
/// A value.
struct UpdateIdentity {
    QString product;                   ///< the program's name
    QUrl feed;                         ///< the appcast, over https
    QUrl website;                      ///< where a person gets the program by hand
    std::string publicKey;             ///< Ed25519, base64; empty: this build cannot update itself
    std::vector<std::string> channels; ///< beside the one that everybody is on
    /// In PEM, the only certificates that are trusted; empty: those of the system. For test
    /// programs.
    QByteArray trustAnchors;
    std::chrono::system_clock::time_point builtAt; ///< no clock that is right shows an earlier time
};

} // namespace updates
