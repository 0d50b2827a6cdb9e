#pragma once

namespace platform {

/// Gives the floors without a toolkit what they need of the user's locale and of the main bundle:
/// installs the `core::TextService` that knows Unicode and the locale of now, and the source of
/// `core::bundleInformation`. Once, after the application object is made. Main thread.
void installLocaleServices();

} // namespace platform
