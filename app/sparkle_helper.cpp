#include "app/sparkle_helper.hpp"

#include "app/addresses.hpp"

namespace larkvox {

QString SparkleHelper::feedURLString(const platform::SPUStandardUpdaterController&) const {
    return QString::fromLatin1(addresses::updateFeed);
}

} // namespace larkvox
