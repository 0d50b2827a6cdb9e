#pragma once

#include <QString>

#include <optional>

class QAccessibleInterface;

namespace platform {
class CellControl;
}

namespace driftwood {

/// A control with a number, as assistive technology sees it. Main thread.
class ValueControl {
  public:
    virtual ~ValueControl() = default;
    /// None when there is no one number: then none is told.
    [[nodiscard]] virtual std::optional<double> spokenValue() const = 0;
    [[nodiscard]] virtual double lowestValue() const = 0;
    [[nodiscard]] virtual double highestValue() const = 0;
    [[nodiscard]] virtual double smallestStep() const = 0;
    /// The value with its unit, or what there is in place of it.
    [[nodiscard]] virtual QString valueText() const = 0;

    // By assistive technology, as by a key.
    virtual void editValue(double value) = 0;
    virtual void stepValue(double steps) = 0;
};

/// The interface of a control that is a `ValueControl`, too: a slider with its value, whose text
/// stands in the description, where the bus carries it. Owned by the caller.
[[nodiscard]] QAccessibleInterface* makeValueAccessible(platform::CellControl& control);

/// Tells of a value that the user has changed.
void announceValue(platform::CellControl& control);

/// A number as the desktop's language writes it, with a unit behind it where there is one.
[[nodiscard]] QString numberWithUnit(double value, const QString& unit);

} // namespace driftwood
