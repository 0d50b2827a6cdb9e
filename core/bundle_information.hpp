#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace core {

/// Looks an entry of the main bundle's information up. Nothing when it is missing or no string.
/// Called from any thread, and must answer the same for as long as the program runs.
using BundleInformationSource = std::optional<std::string> (*)(std::string_view key);

/// The string under `key` (for example "CFBundleShortVersionString") in the main bundle's
/// information; nothing as long as no source is set. Any thread.
[[nodiscard]] std::optional<std::string> bundleInformation(std::string_view key);

/// Where the information comes from; the platform sets it at start-up. Null takes it away.
void setBundleInformationSource(BundleInformationSource source);

} // namespace core
