#pragma once

/// The fixed addresses of the product. Constants: any thread.
namespace larkvox::addresses {

/// The product's appcast on the maker's update server.
inline constexpr const char* updateFeed = "https://updates.fennick.example/larkvox/appcast.xml";
/// The maker's website.
inline constexpr const char* website = "https://www.fennick.example/";
/// The welcome help page: a file of the application's bundle, so that it can be read offline. %1 is
/// the language.
inline constexpr const char* helpPage = "Help/%1.html";

} // namespace larkvox::addresses
