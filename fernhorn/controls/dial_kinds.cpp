#include "fernhorn/controls/chaos_dial.hpp"
#include "fernhorn/controls/medium_dial.hpp"
#include "fernhorn/controls/tiny_dial.hpp"

#include <array>
#include <utility>

namespace fernhorn {
namespace {

DialDesign chaosDesign() {
    return {.frames = QStringLiteral("knobs/chaos-dial-grey_"),
            .imageCount = 51,
            .knobMinDrag = 6,
            .knobDragScaleFactor = 0.005F,
            .knobSize = {56, 64},
            .knobLift = 16,
            .labelColor = QStringLiteral("pluginGrey"),
            .labelFont = FernFont::dosisMedium};
}

DialDesign mediumDesign(SmallDialColor color) {
    struct Names {
        const char* frames;
        const char* label;
    };
    static constexpr std::array<Names, 4> names{{{"blue", "pluginBlue"},
                                                 {"yellow", "pluginYellow"},
                                                 {"red", "pluginRed"},
                                                 {"purple", "pluginPurple"}}};
    const Names& name = names.at(static_cast<std::size_t>(color));
    return {.frames = QStringLiteral("knobs/dial-medium-%1-").arg(QLatin1String(name.frames)),
            .imageCount = 51,
            .knobMinDrag = 6,
            .knobDragScaleFactor = 0.005F,
            .knobSize = {68, 84},
            .knobLift = 16,
            .labelColor = QLatin1String(name.label),
            .labelFont = FernFont::rocket};
}

DialDesign tinyDesign() {
    return {.frames = QStringLiteral("knobs/dial-small-grey-"),
            .imageCount = 51,
            .knobMinDrag = 3,
            .knobDragScaleFactor = 0.01F,
            .knobSize = {34, 40},
            .knobLift = 0,
            .labelColor = QStringLiteral("tinyDialLabel"),
            .labelFont = FernFont::rocket};
}

} // namespace

ChaosDial::ChaosDial(std::shared_ptr<AudioParameter> param, ModernDialColor color,
                     const LabelDisplayOptions& labelDisplayOptions,
                     std::shared_ptr<const LabelFormatter> formatter,
                     std::function<void()> onEditingEnded, QWidget* parent)
    : Dial(std::move(param), chaosDesign(), labelDisplayOptions, std::move(formatter),
           std::move(onEditingEnded), parent),
      color_(color) {}

MediumDial::MediumDial(std::shared_ptr<AudioParameter> param, SmallDialColor color,
                       const LabelDisplayOptions& labelDisplayOptions,
                       std::shared_ptr<const LabelFormatter> formatter,
                       std::function<void()> onEditingEnded, QWidget* parent)
    : Dial(std::move(param), mediumDesign(color), labelDisplayOptions, std::move(formatter),
           std::move(onEditingEnded), parent),
      color_(color) {}

TinyDial::TinyDial(std::shared_ptr<AudioParameter> param,
                   const LabelDisplayOptions& labelDisplayOptions,
                   std::shared_ptr<const LabelFormatter> formatter,
                   std::function<void()> onEditingEnded, QWidget* parent)
    : Dial(std::move(param), tinyDesign(), labelDisplayOptions, std::move(formatter),
           std::move(onEditingEnded), parent) {}

} // namespace fernhorn
