#pragma once

#include <QString>

namespace fernhorn {

/// What is known of a newer release. A value.
struct UpdateAvailableDetails {
    QString newVersion; ///< its number, as it is shown

    friend bool operator==(const UpdateAvailableDetails&, const UpdateAvailableDetails&) = default;
};

} // namespace fernhorn
