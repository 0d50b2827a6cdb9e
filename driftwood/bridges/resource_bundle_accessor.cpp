#include "driftwood/bridges/resource_bundle_accessor.hpp"

namespace driftwood {
namespace {

/// Marks the program or shared library that contains this module.
class BundleFinder {
  public:
    static inline const char anchor = 0;
};

} // namespace

const platform::Bundle& resourceBundle() {
    static const std::unique_ptr<platform::Bundle> bundle =
        platform::findModuleBundle("Driftwood_Driftwood", &BundleFinder::anchor);
    return *bundle;
}

} // namespace driftwood
