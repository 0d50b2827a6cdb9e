#include "app/sparkle_helper.hpp"

#include "app/update_identity.hpp"

namespace larkvox {

QString SparkleHelper::feedURLString(const updates::SPUStandardUpdaterController&) const {
    return updateIdentity().feed.toString();
}

} // namespace larkvox
