#include "artwork/faces.hpp"

#include <array>

namespace artwork {

namespace {

constexpr std::string_view fernhorn = "Fernhorn_Fernhorn";
constexpr std::string_view driftwood = "Driftwood_Driftwood";
constexpr std::string_view rounded = "Fennick Rounded";

constexpr std::array all{
    Face{fernhorn, "Rocket", "Rocket.otf", "Rocket", "Regular", 400},
    Face{fernhorn, "Dosis-Light", "Dosis-Light.otf", "Dosis", "Light", 300},
    Face{fernhorn, "Dosis-Medium", "Dosis-Medium.otf", "Dosis", "Medium", 500},
    Face{driftwood, "FennickRounded-Medium", "FennickRounded-Medium.ttf", rounded, "Medium", 500},
    Face{driftwood, "FennickRounded-Bold", "FennickRounded-Bold.ttf", rounded, "Bold", 700},
};

} // namespace

std::span<const Face> faces() {
    return all;
}

} // namespace artwork
