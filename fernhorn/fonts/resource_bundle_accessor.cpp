#include "fernhorn/fonts/resource_bundle_accessor.hpp"

namespace fernhorn {
namespace {

/// Marks the program or shared library that contains this module.
class BundleFinder {
  public:
    static inline const char anchor = 0;
};

} // namespace

const platform::Bundle& resourceBundle() {
    static const std::unique_ptr<platform::Bundle> bundle =
        platform::findModuleBundle("Fernhorn_Fernhorn", &BundleFinder::anchor);
    return *bundle;
}

} // namespace fernhorn
