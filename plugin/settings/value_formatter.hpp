#pragma once

#include "fernhorn/format/label_formatter.hpp"

#include <memory>

namespace fernhorn {
class AudioParameter;
}

namespace larkvox {

/// What the plug-in, and whoever lists its values, writes a parameter's values with: frequencies in
/// both units, names for choices, signs on both sides of nought. Any thread.
[[nodiscard]] std::shared_ptr<const fernhorn::LabelFormatter>
makeFormatter(const fernhorn::AudioParameter& parameter);

} // namespace larkvox
