#pragma once

#include "driftwood/bridges/styled_class.hpp"

namespace driftwood {

/// A cell with the one style object of its class: derive `Cell` from this, with the class it
/// refines as `Base`. Main thread.
template<class Cell, class Base, class StyleType>
class StyledCell : public Base, public StyledClass<Cell, StyleType> {
  public:
    using Base::Base;
    // `Base` may have ones of its own.
    using typename StyledClass<Cell, StyleType>::ViewStyle;
    using StyledClass<Cell, StyleType>::style;

    [[nodiscard]] StyleType& controlStyle() const override { return style(); }
};

} // namespace driftwood
