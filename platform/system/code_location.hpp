#pragma once

#include <string>

namespace platform {

/// The path of the program or shared library whose code or data contains `address`; empty when the
/// system cannot tell. Any thread.
std::string codeFileContaining(const void* address);

} // namespace platform
