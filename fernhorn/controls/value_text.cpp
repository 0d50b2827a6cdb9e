#include "fernhorn/controls/value_text.hpp"

#include "fernhorn/format/default_label_formatter.hpp"
#include "fernhorn/format/label_name_formatter.hpp"
#include "fernhorn/model/audio_parameter.hpp"

namespace fernhorn {

std::shared_ptr<const LabelFormatter> makeReadOutFormatter(const AudioParameter& parameter) {
    const auto& names = parameter.valueStrings();
    const ValueRange range = parameter.valueRange();
    if (parameter.isIndexed() && names && range.lower >= 0 &&
        range.upper < static_cast<float>(names->size())) {
        return std::make_shared<LabelNameFormatter>(parameter);
    }
    return std::make_shared<DefaultLabelFormatter>(parameter, 1);
}

QString valueText(const AudioParameter& parameter, const LabelFormatter& formatter, float value) {
    const QString text = QString::fromStdString(formatter.format(value));
    const std::string_view suffix = parameter.displayableSuffix();
    return suffix.empty()
               ? text
               : text + u' ' +
                     QString::fromUtf8(suffix.data(), static_cast<qsizetype>(suffix.size()));
}

} // namespace fernhorn
