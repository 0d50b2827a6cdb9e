// Whose updates the program of the end-to-end test takes.

#include "app/update_identity.hpp"

#include "trial_values.hpp"

namespace larkvox {

updates::UpdateIdentity updateIdentity() {
    updates::UpdateIdentity identity;
    identity.product = QStringLiteral("Larkvox");
    identity.feed = QUrl(QString::fromLatin1(trialFeed));
    identity.publicKey = trialKey;
    identity.trustAnchors = trialAuthority;
    return identity;
}

} // namespace larkvox
