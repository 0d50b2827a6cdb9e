#include "driftwood/style/images.hpp"

namespace driftwood {

const Image& DWImages::dwkButton() {
    static const Image image = assetSource().image("dwk-button");
    return image;
}

const Image& DWImages::dwkButtonDown() {
    static const Image image = assetSource().image("dwk-button-down");
    return image;
}

const Image& DWImages::dwkCheckbox() {
    static const Image image = assetSource().image("dwk-checkbox");
    return image;
}

const Image& DWImages::dwkCheckboxOn() {
    static const Image image = assetSource().image("dwk-checkbox-on");
    return image;
}

const Image& DWImages::dwkCheckboxDown() {
    static const Image image = assetSource().image("dwk-checkbox-down");
    return image;
}

const Image& DWImages::dwkCheckboxOnDown() {
    static const Image image = assetSource().image("dwk-checkbox-on-down");
    return image;
}

const Image& DWImages::dwkCheckerboard() {
    static const Image image = assetSource().image("dwk-checkerboard");
    return image;
}

const Image& DWImages::dwkCheckerboardSmall() {
    static const Image image = assetSource().image("dwk-checkerboard-small");
    return image;
}

const Image& DWImages::dwkTextfield() {
    static const Image image = assetSource().image("dwk-textfield");
    return image;
}

const Image& DWImages::dwkTextfieldError() {
    static const Image image = assetSource().image("dwk-textfield-error");
    return image;
}

const Image& DWImages::dwkTextfieldFocus() {
    static const Image image = assetSource().image("dwk-textfield-focus");
    return image;
}

const Image& DWImages::cursorTrackingslider() {
    static const Image image = assetSource().image("cursor-trackingslider");
    return image;
}

const Image& DWImages::fennickLogoBig() {
    static const Image image = assetSource().image("window-fennick");
    return image;
}

} // namespace driftwood
