#pragma once

namespace fernhorn::addresses {

/// The maker's website, unless a plug-in says otherwise.
inline constexpr const char* makerWebsite = "https://www.fennick.example/";

} // namespace fernhorn::addresses
