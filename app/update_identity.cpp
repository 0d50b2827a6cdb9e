#include "app/update_identity.hpp"

#include "app/addresses.hpp"

namespace larkvox {

platform::UpdateIdentity updateIdentity() {
    platform::UpdateIdentity identity;
    identity.product = QStringLiteral("Larkvox");
    identity.feed = QUrl(QStringLiteral(LARKVOX_UPDATE_FEED));
    identity.website = QUrl(QString::fromLatin1(addresses::website));
    identity.publicKey = LARKVOX_UPDATE_PUBLIC_KEY;
    identity.trustAnchors = QByteArrayLiteral(LARKVOX_UPDATE_TRUST_ANCHORS);
    identity.builtAt = std::chrono::sys_seconds(std::chrono::seconds(LARKVOX_BUILT_AT));
    return identity;
}

} // namespace larkvox
