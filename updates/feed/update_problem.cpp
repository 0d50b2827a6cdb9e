#include "updates/feed/update_problem.hpp"

#include <cerrno>
#include <system_error>

namespace updates {

Refusal systemRefusal(int error, const std::string& doing) {
    const std::string detail = doing + ": " + std::generic_category().message(error);
    switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {UpdateProblem::noSpace, detail};
    case EACCES:
    case EPERM:
        return {UpdateProblem::noPermission, detail};
    case EROFS:
        return {UpdateProblem::readOnly, detail};
    default:
        return {UpdateProblem::inputOutput, detail};
    }
}

} // namespace updates
