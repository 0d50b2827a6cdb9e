#include "updates/feed/update_choice.hpp"

#include "updates/feed/publication_date.hpp"
#include "updates/feed/secure_address.hpp"
#include "updates/feed/signature.hpp"
#include "updates/feed/version_order.hpp"

#include <algorithm>

namespace updates {
namespace {

using Why = NothingSuitable::Why;

/// How exactly an archive's system names the host's: 0 for any, -1 for another one.
int systemMatch(const std::string& os, const UpdateHost& host) {
    if (os.empty()) {
        return 0;
    }
    if (os == host.platform) {
        return 2;
    }
    return host.platform.starts_with(os + '-') ? 1 : -1;
}

bool isForHost(const AppcastItem& item, const UpdateHost& host) {
    return systemMatch(item.enclosure.os, host) >= 0 &&
           (item.channel.empty() || std::ranges::count(host.channels, item.channel) > 0);
}

bool isCriticalFor(const AppcastItem& item, const UpdateHost& host) {
    return item.isCritical &&
           (item.criticalBelow.empty() ||
            std::is_lt(compareVersions(host.installedVersion, item.criticalBelow)));
}

/// "6.1" of "6.1-amd64": what follows the numbers is no pre-release of a system.
std::string_view systemNumbers(std::string_view version) {
    return version.substr(0, version.find_first_not_of("0123456789."));
}

bool hasCome(const AppcastItem& item, const UpdateHost& host) {
    if (!item.phasedRolloutInterval || isCriticalFor(item, host)) {
        return true;
    }
    const auto published = parsePublicationDate(item.pubDate);
    // Without a date there is no beginning to count from.
    return !published || host.now >= *published + *item.phasedRolloutInterval *
                                                      std::min(host.phaseGroup, phaseGroups - 1);
}

/// What keeps a newer version for this host from being installed.
std::optional<Why> obstacle(const AppcastItem& item, const UpdateHost& host, Asking asking) {
    const AppcastEnclosure& enclosure = item.enclosure;
    if (!host.highestInstalledVersion.empty() &&
        std::is_lt(compareVersions(item.version, host.highestInstalledVersion))) {
        return Why::belowHighestInstalled;
    }
    if (!isSecureAddress(enclosure.url)) {
        return Why::insecureAddress;
    }
    if (!isSignature(enclosure.edSignature)) {
        return Why::notSigned;
    }
    if (enclosure.length == 0) {
        return Why::unknownLength;
    }
    if (enclosure.length > largestArchive) {
        return Why::tooLarge;
    }
    if (!item.minimumSystemVersion.empty() &&
        std::is_lt(compareVersions(systemNumbers(host.systemVersion), item.minimumSystemVersion))) {
        return Why::needsNewerSystem;
    }
    if (asking == Asking::schedule) {
        // Exactly this one: a skipped item that lied about its version silences no other.
        if (!isCriticalFor(item, host) && item.version == host.skippedVersion &&
            enclosure.edSignature == host.skippedSignature) {
            return Why::skipped;
        }
        if (!hasCome(item, host)) {
            return Why::notYetForThisGroup;
        }
    }
    return std::nullopt;
}

bool isBetter(const AppcastItem& item, const AppcastItem* best, const UpdateHost& host) {
    if (best == nullptr) {
        return true;
    }
    const auto order = compareVersions(item.version, best->version);
    return std::is_gt(order) || (std::is_eq(order) && systemMatch(item.enclosure.os, host) >
                                                          systemMatch(best->enclosure.os, host));
}

} // namespace

std::variant<AppcastItem, UpToDate, NothingSuitable>
chooseUpdate(const Appcast& appcast, const UpdateHost& host, Asking asking) {
    bool hasAny = false;
    const AppcastItem* best = nullptr;
    const AppcastItem* passedOver = nullptr;
    Why why = Why::nothingForThisSystem;
    for (const AppcastItem& item : appcast.items) {
        if (!isForHost(item, host)) {
            continue;
        }
        hasAny = true;
        if (std::is_lteq(compareVersions(item.version, host.installedVersion))) {
            continue;
        }
        if (const auto reason = obstacle(item, host, asking); !reason) {
            if (isBetter(item, best, host)) {
                best = &item;
            }
        } else if (isBetter(item, passedOver, host)) {
            passedOver = &item;
            why = *reason;
        }
    }
    if (best != nullptr) {
        AppcastItem chosen = *best;
        chosen.isCritical = isCriticalFor(chosen, host);
        return chosen;
    }
    if (passedOver != nullptr) {
        return NothingSuitable{why, *passedOver};
    }
    if (!hasAny) {
        return NothingSuitable{};
    }
    return UpToDate{};
}

} // namespace updates
