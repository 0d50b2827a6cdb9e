#include "driftwood/style/styles.hpp"

namespace driftwood {

const Font& Styles::BaseStyles::normalFont() {
    static const Font font =
        assetSource().systemFont(10, FontWeight::regular, FontDigits::proportional);
    return font;
}

const Font& Styles::BaseStyles::mediumFont() {
    static const Font font =
        assetSource().systemFont(10, FontWeight::medium, FontDigits::proportional);
    return font;
}

const Font& Styles::BaseStyles::normalMonoFont() {
    static const Font font =
        assetSource().systemFont(10, FontWeight::regular, FontDigits::monospaced);
    return font;
}

const Font& Styles::BaseStyles::headerFont() {
    static const Font font =
        assetSource().systemFont(12, FontWeight::medium, FontDigits::proportional);
    return font;
}

const Font& Styles::BaseStyles::menuFont() {
    static const Font font =
        assetSource().systemFont(12, FontWeight::regular, FontDigits::proportional);
    return font;
}

const Font& Styles::BaseStyles::titleFont() {
    static const Font font =
        assetSource().systemFont(14, FontWeight::medium, FontDigits::proportional);
    return font;
}

const Font& Styles::BaseStyles::largeTitleFont() {
    static const Font font =
        assetSource().systemFont(20, FontWeight::medium, FontDigits::proportional);
    return font;
}

const Color& Styles::error() {
    static const Color color = assetSource().color("Error");
    return color;
}

const Color& Styles::clear() {
    static const Color color = assetSource().clearColor();
    return color;
}

Color Styles::systemHighlight() {
    return assetSource().color("Highlight/System");
}

} // namespace driftwood
