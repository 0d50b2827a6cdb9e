#pragma once

#include "driftwood/style/colors.hpp"

#include "core/geometry.hpp"

namespace driftwood {

/// The catalogue: the constants that the style classes start from, and that other views of the kit
/// use by themselves. Sizes are in points. Fonts and colours are made once, when they are first
/// used; one that is returned by value is asked for anew on every read. Main thread.
struct Styles {
    struct BaseStyles {
        static const Font& normalFont();     ///< 10 points, regular
        static const Font& mediumFont();     ///< 10 points, medium
        static const Font& normalMonoFont(); ///< 10 points, regular, digits of one width
        static const Font& headerFont();     ///< 12 points, medium
        static const Font& menuFont();       ///< 12 points, regular
        static const Font& titleFont();      ///< 14 points, medium
        static const Font& largeTitleFont(); ///< 20 points, medium
        static constexpr double smallCorner = 3;
    };

    struct WelcomeHeadings {
        static constexpr double topPadding = 32;
        static constexpr double bottomPadding = 12;
    };

    struct Layout {
        static constexpr double rowHeight = 24;
        static constexpr double headerHeight = 24;
        static constexpr core::Size materialPresetsSize{76, 83};
    };

    struct Control {
        static const Font& font() { return BaseStyles::normalFont(); }
        static const Color& textColor() { return DWColors::grey85(); }
        static const Color& selectedTextColor() { return DWColors::grey100(); }
        static const Color& highlightedTextColor() { return DWColors::grey50(); }
        static const Color& disabledTextColor() { return DWColors::grey40(); }
        static const Color& errorTextColor() { return DWColors::grey100(); }
        static const Color& errorBackground() { return error(); }
        static const Color& errorFocusRingColor() { return error(); }
        static const Color& background() { return clear(); }
        static const Color& highlightedBackground() { return clear(); }
        static const Color& disabledBackground() { return clear(); }
        static const Color& placeholderBackground() { return clear(); }
        static const Color& placeholderTextColor() { return DWColors::grey20(); }
        static Color selectedBackground() { return systemHighlight(); }
    };

    struct TextInput {
        static const Font& font() { return BaseStyles::normalFont(); }
        static const Color& textColor() { return DWColors::grey85(); }
        static const Color& selectedTextColor() { return DWColors::grey100(); }
        static const Color& highlightedTextColor() { return DWColors::grey100(); }
        static const Color& disabledTextColor() { return DWColors::grey40(); }
        static const Color& errorTextColor() { return error(); }
        static const Color& placeholderTextColor() { return DWColors::grey50(); }
        static const Color& placeholderHighlightedTextColor() { return DWColors::Kestrel::blue(); }
        static const Color& background() { return clear(); }
        static const Color& highlightedBackground() { return clear(); }
        static const Color& disabledBackground() { return clear(); }
        static const Color& placeholderBackground() { return clear(); }
        static const Color& errorBackground() { return error(); }
        static Color selectedBackground() { return systemHighlight(); }
    };

    struct Label {
        static const Font& font() { return BaseStyles::normalFont(); }
        static const Color& nsTextColor() { return DWColorsAK::grey60(); } ///< for cells
        static const Color& textColor() { return DWColors::grey60(); } ///< for declarative views
        static const Color& disabledTextColor() { return DWColors::grey30(); }
    };

    struct ScrollView {
        static const Color& background() { return DWColors::Background::darker(); }
    };

    struct TableView {
        static const Color& background() { return DWColors::Background::darker(); }
    };

    struct Window {
        static const Color& background() { return DWColors::Background::normal(); }
    };

    struct CanvasInfo {
        static const Color& background() { return DWColors::Background::normal(); }
        static const Font& font() { return BaseStyles::normalFont(); }
        static const Color& textColor() { return DWColors::grey85(); }
    };

    struct OutlineHeader {
        static const Font& font() { return BaseStyles::headerFont(); }
        static const Color& textColor() { return DWColors::grey50(); }
    };

    struct OutlineRow {
        static const Font& font() { return BaseStyles::normalMonoFont(); }
        static const Font& selectedFont() { return BaseStyles::mediumFont(); }
        static const Color& textColor() { return DWColors::grey85(); }
        static const Color& selectedTextColor() { return DWColors::grey100(); }
        static const Color& background() { return DWColors::Background::darker(); }
        static Color selectedBackground() { return systemHighlight(); }
    };

    struct TableHeader {
        static const Font& font() { return BaseStyles::headerFont(); }
        static const Color& textColor() { return DWColors::grey50(); }
        static const Color& background() { return DWColors::Background::darkest(); }
    };

    struct TableRow {
        static const Font& font() { return BaseStyles::normalMonoFont(); }
        static const Font& selectedFont() { return BaseStyles::mediumFont(); }
        static const Color& textColor() { return DWColors::grey70(); }
        static const Color& selectedTextColor() { return DWColors::grey100(); }
        static Color selectedBackground() { return systemHighlight(); }
    };

    struct TableGroupRow {
        static const Font& font() { return BaseStyles::normalFont(); }
        static const Font& selectedFont() { return BaseStyles::mediumFont(); }
        static const Color& textColor() { return DWColors::grey50(); }
        static const Color& selectedTextColor() { return DWColors::grey100(); }
        static Color selectedBackground() { return systemHighlight(); }
    };

    struct PropertiesTab {
        static const Font& font() { return BaseStyles::headerFont(); }
        static const Color& textColor() { return DWColors::grey70(); }
        static const Color& selectedTextColor() { return DWColors::grey85(); }
        static const Color& highlightedTextColor() { return DWColors::grey50(); }
    };

    struct CustomTags {};

  private:
    static const Color& error();    // the asset "Error"
    static const Color& clear();    // draws nothing
    static Color systemHighlight(); // the asset "Highlight/System"; the desktop may change it
};

} // namespace driftwood
