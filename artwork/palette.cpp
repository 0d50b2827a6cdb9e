#include "artwork/palette.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <array>
#include <string>

namespace artwork {

namespace {

constexpr std::string_view application = "Larkvox";
constexpr std::string_view driftwood = "Driftwood_Driftwood";
constexpr std::string_view fernhorn = "Fernhorn_Fernhorn";

constexpr std::array colors{
    NamedColor{application, "background", 0xff15111f},
    NamedColor{application, "buttonText", 0xffd8d6dc},

    NamedColor{fernhorn, "pluginGrey", 0xffb2b0b6},
    NamedColor{fernhorn, "pluginBlue", 0xff4a7dff},
    NamedColor{fernhorn, "pluginYellow", 0xffffd35c},
    NamedColor{fernhorn, "pluginRed", 0xffff4d6a},
    NamedColor{fernhorn, "pluginPurple", 0xff9a5cff},
    NamedColor{fernhorn, "tinyDialLabel", 0xff98969d},
    NamedColor{fernhorn, "chaosToggleText", 0xffd8d6dc},
    NamedColor{fernhorn, "chaosToggleTextPressed", 0xffa3a1a8},
    NamedColor{fernhorn, "ChaosYellowText", 0xff2b2009},
    NamedColor{fernhorn, "buttonText", 0xffd8d6dc},
    NamedColor{fernhorn, "background", 0xff15111f},
    NamedColor{fernhorn, "tabSelected", 0xffffffff},
    NamedColor{fernhorn, "tabUnselected", 0xff98969d},
    NamedColor{fernhorn, "versionInfo", 0xff8a8890},
    NamedColor{fernhorn, "updateBackground", 0xff3fd0c9},

    NamedColor{driftwood, "Background/Darkest", 0xff18161d},
    NamedColor{driftwood, "Background/Darker", 0xff211f27},
    NamedColor{driftwood, "Background/Normal", 0xff2a2830},
    NamedColor{driftwood, "Grey 20%", 0xff333139},
    NamedColor{driftwood, "Grey 30%", 0xff4b4950},
    NamedColor{driftwood, "Grey 40%", 0xff646269},
    NamedColor{driftwood, "Grey 50%", 0xff8a8890},
    NamedColor{driftwood, "Grey 60%", 0xff98969d},
    NamedColor{driftwood, "Grey 70%", 0xffb2b0b6},
    NamedColor{driftwood, "Grey 85%", 0xffd8d6dc},
    NamedColor{driftwood, "Grey 100%", 0xffffffff},
    NamedColor{driftwood, "Highlight/System", 0xff7761dd},
    NamedColor{driftwood, "Error", 0xffd8364f},
    NamedColor{driftwood, "Kestrel/Aqua", 0xff3fd0c9},
    NamedColor{driftwood, "Kestrel/Blue", 0xff4a7dff},
    NamedColor{driftwood, "Kestrel/DarkPurple", 0xff2b1d4a},
    NamedColor{driftwood, "Kestrel/LightBlue", 0xff7fb6ff},
    NamedColor{driftwood, "Kestrel/Orange", 0xffff9a4a},
    NamedColor{driftwood, "Kestrel/Purple", 0xff9a5cff},
    NamedColor{driftwood, "Kestrel/Red", 0xffff4d6a},
    NamedColor{driftwood, "Kestrel/Yellow", 0xffffd35c},
};

/// A name that several bundles use means one colour, or drawings would have to say whose they mean.
constexpr bool namesAgree() {
    return std::ranges::all_of(colors, [](const NamedColor& one) {
        return std::ranges::find(colors, one.name, &NamedColor::name)->rgb == one.rgb;
    });
}
static_assert(namesAgree());

} // namespace

std::span<const NamedColor> palette() {
    return colors;
}

QColor color(std::string_view name, double opacity) {
    const auto* found = std::ranges::find(colors, name, &NamedColor::name);
    if (found == colors.end()) {
        core::fatal("no colour is called " + std::string(name));
    }
    auto result = QColor::fromRgb(found->rgb);
    result.setAlphaF(static_cast<float>(opacity));
    return result;
}

QColor mixed(const QColor& from, const QColor& to, double amount) {
    const auto t = static_cast<float>(amount);
    const auto between = [t](float a, float b) { return a + (b - a) * t; };
    return QColor::fromRgbF(between(from.redF(), to.redF()), between(from.greenF(), to.greenF()),
                            between(from.blueF(), to.blueF()), between(from.alphaF(), to.alphaF()));
}

} // namespace artwork
