#include "platform/system/code_location.hpp"

#include <dlfcn.h>

#include <climits>
#include <cstdlib>

namespace platform {

std::string codeFileContaining(const void* address) {
    Dl_info info{};
    if (dladdr(address, &info) == 0 || info.dli_fname == nullptr) {
        return {};
    }
    // For the main program dli_fname may be relative to the directory it was started in.
    char resolved[PATH_MAX];
    return realpath(info.dli_fname, resolved) != nullptr ? std::string(resolved) : std::string();
}

} // namespace platform
