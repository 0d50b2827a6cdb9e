#include "core/fatal.hpp"

#include <cstdio>
#include <cstdlib>

namespace core {

void fatal(std::string_view message, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: Fatal error: %.*s\n", file, line, static_cast<int>(message.size()),
                 message.data());
    std::fflush(stderr);
    std::abort();
}

} // namespace core
