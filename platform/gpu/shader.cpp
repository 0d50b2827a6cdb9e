#include "platform/gpu/shader.hpp"

#include <algorithm>

namespace platform {

Shader::Arguments Shader::paddedArguments() const {
    Arguments padded{};
    std::copy_n(arguments.begin(), std::min(arguments.size(), padded.size()), padded.begin());
    return padded;
}

} // namespace platform
