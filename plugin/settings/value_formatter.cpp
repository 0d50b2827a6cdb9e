#include "plugin/settings/value_formatter.hpp"

#include "fernhorn/format/default_label_formatter.hpp"
#include "fernhorn/format/label_name_formatter.hpp"
#include "fernhorn/model/audio_parameter.hpp"
#include "plugin/settings/frequency_formatter.hpp"
#include "plugin/settings/gain_formatter.hpp"

namespace larkvox {

using Unit = platform::AudioUnitParameterUnit;

std::shared_ptr<const fernhorn::LabelFormatter>
makeFormatter(const fernhorn::AudioParameter& parameter) {
    const Unit unit = parameter.units();
    if (unit == Unit::indexed && parameter.valueStrings()) {
        return std::make_shared<fernhorn::LabelNameFormatter>(parameter);
    }
    if (unit == Unit::hertz) {
        return std::make_shared<FrequencyFormatter>();
    }
    const int places = unit == Unit::absoluteCents || unit == Unit::decibels ? 1 : 0;
    if (parameter.valueRange().lower < 0 && parameter.valueRange().upper > 0) {
        return std::make_shared<GainFormatter>(places, parameter.saveScaleFactor());
    }
    return std::make_shared<fernhorn::DefaultLabelFormatter>(parameter, places);
}

} // namespace larkvox
