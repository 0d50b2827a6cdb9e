#pragma once

#include <string>
#include <string_view>

namespace updates {

/// Rich text that may be shown, in valid UTF-8.
struct SafeHtml {
    std::string html;
    bool isCut = false; ///< there was more

    bool operator==(const SafeHtml&) const = default;
};

/// Release notes from outside, reduced to what may be shown: paragraphs, headings, lists, emphasis,
/// code, and links to https, http and mailto addresses. Everything else goes: scripts, styles,
/// pictures, forms, frames, every other attribute, signs that turn the direction of the text. The
/// result is balanced and so small (8 KiB of text in 300 lines and 600 elements, 8 deep, with
/// letters of two scripts beside Latin, Greek and Cyrillic) that it is laid out in no time; the
/// rest is cut. Linear time. Any thread.
[[nodiscard]] SafeHtml safeHtml(std::string_view html);

/// Plain text as HTML that shows it line by line, within the same bounds. Any thread.
[[nodiscard]] SafeHtml htmlOfText(std::string_view text);

} // namespace updates
