#include "driftwood/style/colors.hpp"

namespace driftwood {

const Color& DWColors::Background::darker() {
    static const Color color = assetSource().color("Background/Darker");
    return color;
}

const Color& DWColors::Background::darkest() {
    static const Color color = assetSource().color("Background/Darkest");
    return color;
}

const Color& DWColors::Background::normal() {
    static const Color color = assetSource().color("Background/Normal");
    return color;
}

const Color& DWColors::Kestrel::aqua() {
    static const Color color = assetSource().color("Kestrel/Aqua");
    return color;
}

const Color& DWColors::Kestrel::blue() {
    static const Color color = assetSource().color("Kestrel/Blue");
    return color;
}

const Color& DWColors::Kestrel::darkPurple() {
    static const Color color = assetSource().color("Kestrel/DarkPurple");
    return color;
}

const Color& DWColors::Kestrel::lightBlue() {
    static const Color color = assetSource().color("Kestrel/LightBlue");
    return color;
}

const Color& DWColors::Kestrel::orange() {
    static const Color color = assetSource().color("Kestrel/Orange");
    return color;
}

const Color& DWColors::Kestrel::purple() {
    static const Color color = assetSource().color("Kestrel/Purple");
    return color;
}

const Color& DWColors::Kestrel::red() {
    static const Color color = assetSource().color("Kestrel/Red");
    return color;
}

const Color& DWColors::Kestrel::yellow() {
    static const Color color = assetSource().color("Kestrel/Yellow");
    return color;
}

const Color& DWColors::grey20() {
    static const Color color = assetSource().color("Grey 20%");
    return color;
}

const Color& DWColors::grey30() {
    static const Color color = assetSource().color("Grey 30%");
    return color;
}

const Color& DWColors::grey40() {
    static const Color color = assetSource().color("Grey 40%");
    return color;
}

const Color& DWColors::grey50() {
    static const Color color = assetSource().color("Grey 50%");
    return color;
}

const Color& DWColors::grey60() {
    static const Color color = assetSource().color("Grey 60%");
    return color;
}

const Color& DWColors::grey70() {
    static const Color color = assetSource().color("Grey 70%");
    return color;
}

const Color& DWColors::grey85() {
    static const Color color = assetSource().color("Grey 85%");
    return color;
}

const Color& DWColors::grey100() {
    static const Color color = assetSource().color("Grey 100%");
    return color;
}

} // namespace driftwood
