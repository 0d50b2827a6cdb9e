#pragma once

#include "updates/feed/update_problem.hpp"

#include <QString>

namespace updates {

/// What a person is told of a problem. A value, for any thread.
struct UpdateFailure {
    UpdateProblem problem;
    QString detail; ///< as the problem says; else empty

    bool operator==(const UpdateFailure&) const = default;
};

} // namespace updates
