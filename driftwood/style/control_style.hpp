#pragma once

#include "driftwood/style/base_style.hpp"
#include "driftwood/style/state_images.hpp"

#include "core/geometry.hpp"

// All of this is for the main thread.
namespace driftwood {

/// How the middle of an image fills what its caps leave free. The values count.
enum class ImageResizingMode { tile = 0, stretch = 1 };

/// Edge insets that follow the direction of reading.
struct DirectionalEdgeInsets {
    double top = 0;
    double leading = 0;
    double bottom = 0;
    double trailing = 0;
    friend bool operator==(const DirectionalEdgeInsets&, const DirectionalEdgeInsets&) = default;
};

/// The style of a control: its fonts, colours and bezel for every state. Insets are in points; null
/// colours draw nothing.
class ControlStyle : public BaseStyle {
  public:
    ControlStyle();

    [[nodiscard]] const Font& font() const { return font_; }
    void setFont(Font font) { setLayout(font_, std::move(font)); }

    [[nodiscard]] const Color& textColor() const { return textColor_; }
    void setTextColor(Color color) { setLook(textColor_, std::move(color)); }

    [[nodiscard]] const Color& textBackgroundColor() const { return textBackgroundColor_; }
    void setTextBackgroundColor(Color color) { setLook(textBackgroundColor_, std::move(color)); }

    [[nodiscard]] const Font& selectedFont() const { return selectedFont_; }
    void setSelectedFont(Font font) { setLayout(selectedFont_, std::move(font)); }

    [[nodiscard]] const Color& selectedTextColor() const { return selectedTextColor_; }
    void setSelectedTextColor(Color color) { setLook(selectedTextColor_, std::move(color)); }

    [[nodiscard]] const Color& selectedBackgroundColor() const { return selectedBackgroundColor_; }
    void setSelectedBackgroundColor(Color color) {
        setLook(selectedBackgroundColor_, std::move(color));
    }

    [[nodiscard]] const Color& disabledTextColor() const { return disabledTextColor_; }
    void setDisabledTextColor(Color color) { setLook(disabledTextColor_, std::move(color)); }

    [[nodiscard]] const Color& disabledBackgroundColor() const { return disabledBackgroundColor_; }
    void setDisabledBackgroundColor(Color color) {
        setLook(disabledBackgroundColor_, std::move(color));
    }

    [[nodiscard]] const Color& highlightedTextColor() const { return highlightedTextColor_; }
    void setHighlightedTextColor(Color color) { setLook(highlightedTextColor_, std::move(color)); }

    [[nodiscard]] const Color& highlightedBackgroundColor() const {
        return highlightedBackgroundColor_;
    }
    void setHighlightedBackgroundColor(Color color) {
        setLook(highlightedBackgroundColor_, std::move(color));
    }

    [[nodiscard]] const Color& invalidTextColor() const { return invalidTextColor_; }
    void setInvalidTextColor(Color color) { setLook(invalidTextColor_, std::move(color)); }

    [[nodiscard]] const Color& invalidBackgroundColor() const { return invalidBackgroundColor_; }
    void setInvalidBackgroundColor(Color color) {
        setLook(invalidBackgroundColor_, std::move(color));
    }

    /// The frame behind the control, by state; a control can take its size from it.
    [[nodiscard]] const StateImages& bezelImages() const { return bezelImages_; }
    void setBezelImages(StateImages images) { setLayout(bezelImages_, std::move(images)); }

    // How the artwork is resized is said by the artwork itself, in the bundle: these fields are
    // kept for hosts that draw with images of their own. No control of the kit reads them, and
    // nobody is told of a change.

    [[nodiscard]] const core::EdgeInsets& bezelImageCapInsets() const {
        return bezelImageCapInsets_;
    }
    void setBezelImageCapInsets(const core::EdgeInsets& insets) { bezelImageCapInsets_ = insets; }

    [[nodiscard]] ImageResizingMode bezelImageResizingMode() const {
        return bezelImageResizingMode_;
    }
    void setBezelImageResizingMode(ImageResizingMode mode) { bezelImageResizingMode_ = mode; }

    /// The same three for declarative views that host a styled control.
    [[nodiscard]] const StateImages& swiftUIBezelImages() const { return swiftUIBezelImages_; }
    void setSwiftUIBezelImages(StateImages images) { swiftUIBezelImages_ = std::move(images); }

    [[nodiscard]] const DirectionalEdgeInsets& swiftUIBezelImageCapInsets() const {
        return swiftUIBezelImageCapInsets_;
    }
    void setSwiftUIBezelImageCapInsets(const DirectionalEdgeInsets& insets) {
        swiftUIBezelImageCapInsets_ = insets;
    }

    [[nodiscard]] ImageResizingMode swiftUIBezelImageResizingMode() const {
        return swiftUIBezelImageResizingMode_;
    }
    void setSwiftUIBezelImageResizingMode(ImageResizingMode mode) {
        swiftUIBezelImageResizingMode_ = mode;
    }

    /// From the control's edges to the lines it is aligned by.
    [[nodiscard]] const core::EdgeInsets& alignmentRectInsets() const {
        return alignmentRectInsets_;
    }
    void setAlignmentRectInsets(const core::EdgeInsets& insets) {
        setLayout(alignmentRectInsets_, insets);
    }

    /// From the control's edges to its content.
    [[nodiscard]] const core::EdgeInsets& edgeInsets() const { return edgeInsets_; }
    void setEdgeInsets(const core::EdgeInsets& insets) { setLayout(edgeInsets_, insets); }

    [[nodiscard]] const Color& focusRingColor() const { return focusRingColor_; }
    void setFocusRingColor(Color color) { setLook(focusRingColor_, std::move(color)); }

    [[nodiscard]] const Color& invalidFocusRingColor() const { return invalidFocusRingColor_; }
    void setInvalidFocusRingColor(Color color) {
        setLook(invalidFocusRingColor_, std::move(color));
    }

    [[nodiscard]] const Color& focusRingColor(StyledControlState state) const;
    [[nodiscard]] const Color& textColor(StyledControlState state) const;
    /// Its order differs from that of `textColor`, and it ends at `backgroundColor`.
    [[nodiscard]] const Color& textBackgroundColor(StyledControlState state) const;
    /// The best match in `bezelImages`, null when nothing matches.
    [[nodiscard]] const Image& bezelImage(StyledControlState state) const {
        return bezelImages_.image(state);
    }

  private:
    Font font_;
    Color textColor_;
    Color textBackgroundColor_;
    Font selectedFont_;
    Color selectedTextColor_;
    Color selectedBackgroundColor_;
    Color disabledTextColor_;
    Color disabledBackgroundColor_;
    Color highlightedTextColor_;
    Color highlightedBackgroundColor_;
    Color invalidTextColor_;
    Color invalidBackgroundColor_;
    StateImages bezelImages_;
    core::EdgeInsets bezelImageCapInsets_;
    ImageResizingMode bezelImageResizingMode_ = ImageResizingMode::tile;
    StateImages swiftUIBezelImages_;
    DirectionalEdgeInsets swiftUIBezelImageCapInsets_;
    ImageResizingMode swiftUIBezelImageResizingMode_ = ImageResizingMode::stretch;
    core::EdgeInsets alignmentRectInsets_;
    core::EdgeInsets edgeInsets_;
    Color focusRingColor_;
    Color invalidFocusRingColor_;
};

} // namespace driftwood
