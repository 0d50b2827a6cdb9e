#pragma once

#include "platform/assets/bundle.hpp"

namespace larkvox {

/// Stands for the application's own resource bundle, that of the running program: the colours
/// "background" and "buttonText", the icons, the help pages and the catalogues. Main thread.
class ResourceBundleClass {
  public:
    static const platform::Bundle& bundle() { return platform::Bundle::main(); }
};

} // namespace larkvox
