#pragma once

#include "core/geometry.hpp"
#include "driftwood/style/base_style.hpp"

// All of this is for the main thread.
namespace driftwood {

/// The style of windows.
class WindowStyle : public BaseStyle {
  public:
    WindowStyle();

    /// Room at the left and right, and at the top and bottom, in points.
    [[nodiscard]] const core::Size& padding() const { return padding_; }
    void setPadding(const core::Size& padding) { setLayout(padding_, padding); }

    [[nodiscard]] const Font& font() const { return font_; }
    void setFont(Font font) { setLayout(font_, std::move(font)); }

    [[nodiscard]] const Color& textColor() const { return textColor_; }
    void setTextColor(Color color) { setLook(textColor_, std::move(color)); }

  private:
    core::Size padding_;
    Font font_;
    Color textColor_;
};

/// The style of popovers: padding on all sides, as their content is pinned by.
class PopoverStyle : public WindowStyle {
  public:
    PopoverStyle();
};

} // namespace driftwood
