#pragma once

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "driftwood/style/base_style.hpp"

namespace driftwood {

/// Gives a cell class its one style object: derive `Cell` from this, with the class it refines as
/// `Base`. The kit's assets are there by the time the style is made.
template<class Cell, class Base, class StyleType>
class StyledCell : public Base {
  public:
    using ViewStyle = StyleType;
    using Base::Base;

    [[nodiscard]] static StyleType& style() {
        static StyleType& shared = [&]() -> StyleType& {
            installKitAssets();
            return sharedStyle<Cell, StyleType>();
        }();
        return shared;
    }
    [[nodiscard]] StyleType& controlStyle() const override { return style(); }
};

} // namespace driftwood
