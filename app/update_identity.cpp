#include "app/update_identity.hpp"

#include "app/addresses.hpp"

#include <QDate>

namespace larkvox {

updates::UpdateIdentity updateIdentity() {
    updates::UpdateIdentity identity;
    identity.product = QStringLiteral("Larkvox");
    identity.feed = QUrl(QString::fromLatin1(addresses::updateFeed));
    identity.website = QUrl(QString::fromLatin1(addresses::website));
    identity.publicKey = LARKVOX_UPDATE_PUBLIC_KEY;
    const QDate released = QDate::fromString(QStringLiteral(LARKVOX_RELEASE_DATE), Qt::ISODate);
    identity.builtAt = std::chrono::sys_seconds(
        std::chrono::seconds(released.startOfDay(Qt::UTC).toSecsSinceEpoch()));
    return identity;
}

} // namespace larkvox
