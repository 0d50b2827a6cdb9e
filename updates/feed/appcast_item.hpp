#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace updates {

/// The archive that an item of an appcast offers, as the feed words it: nothing of it is checked
/// yet. A value.
struct AppcastEnclosure {
    std::string url;
    std::uint64_t length = 0; ///< bytes; 0 where the feed names none, or none that makes sense
    std::string type;         ///< media type
    std::string edSignature;  ///< Ed25519 over the archive's bytes, in base64
    std::string os;           ///< "linux" or "linux-x86_64"; empty: any

    bool operator==(const AppcastEnclosure&) const = default;
};

/// One version that an appcast offers. Texts are UTF-8 without white space at their ends, and
/// empty where the feed says nothing. A value: any thread may have its copy.
struct AppcastItem {
    std::string title;
    std::string pubDate; ///< as written; see publication_date.hpp
    std::string version; ///< what is compared; always a version in the sense of `isVersion`
    std::string shortVersionString;
    std::string minimumSystemVersion;
    std::string channel; ///< empty: for everybody
    /// The time from one group of installations to the next; up to a year.
    std::optional<std::chrono::seconds> phasedRolloutInterval;
    bool isCritical = false;
    std::string criticalBelow; ///< only critical for versions below this one; empty: for all
    std::string releaseNotesLink;
    std::string description; ///< HTML as the publisher wrote it: not safe to show as it is
    AppcastEnclosure enclosure;

    bool operator==(const AppcastItem&) const = default;

    /// What people call the version.
    [[nodiscard]] const std::string& displayVersion() const {
        return shortVersionString.empty() ? version : shortVersionString;
    }
};

} // namespace updates
