#include "fernhorn/fonts/resource_bundle_accessor.hpp"

namespace fernhorn {
namespace {

/// Marks the program or shared library that contains this module.
class BundleFinder {
  public:
    static inline const char anchor = 0;
};

constexpr const char* bundleName = "Fernhorn_Fernhorn";

} // namespace

const platform::Bundle& resourceBundle() {
    static const std::unique_ptr<platform::Bundle> bundle =
        platform::findModuleBundle(bundleName, &BundleFinder::anchor);
    return *bundle;
}

bool hasResourceBundle() {
    return platform::openBundle(QString::fromLatin1(bundleName),
                                platform::moduleBundleCandidates(&BundleFinder::anchor)) != nullptr;
}

} // namespace fernhorn
