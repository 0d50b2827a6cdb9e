#pragma once

#include "fernhorn/format/label_formatter.hpp"
#include "fernhorn/model/audio_parameter.hpp"

#include <memory>

namespace fernhorn {

/// Has hosts write and read a parameter's values as the formatter does, in place of the texts of
/// `ParameterSettings`: for a host's own controls, its automation lanes and its typed values. A
/// missing or NaN value stays "-"; a text that the formatter does not understand is the value of
/// now. The formatter is called on any thread, one after another or at once.
void useFormatter(AudioParameter& parameter, std::shared_ptr<const LabelFormatter> formatter);

} // namespace fernhorn
