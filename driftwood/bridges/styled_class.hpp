#pragma once

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "driftwood/style/base_style.hpp"

namespace driftwood {

/// Gives a class of cells or views its one style object: derive `Owner` from this. The kit's assets
/// are there by the time the style is made. Main thread.
template<class Owner, class StyleType>
class StyledClass {
  public:
    using ViewStyle = StyleType;

    [[nodiscard]] static StyleType& style() {
        static StyleType& shared = [&]() -> StyleType& {
            installKitAssets();
            return sharedStyle<Owner, StyleType>();
        }();
        return shared;
    }
};

} // namespace driftwood
