#pragma once

#include "fernhorn/format/label_formatter.hpp"

#include <QString>

#include <memory>

namespace fernhorn {

class AudioParameter;

/// What a control without a formatter of its own shows: the names of an indexed parameter's values,
/// else numbers with one decimal place.
std::shared_ptr<const LabelFormatter> makeReadOutFormatter(const AudioParameter& parameter);

/// A value and its unit, as one text.
QString valueText(const AudioParameter& parameter, const LabelFormatter& formatter, float value);

} // namespace fernhorn
