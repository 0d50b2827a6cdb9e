#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Release notes from outside, reduced to what may be shown: paragraphs, headings, lists, emphasis,
/// code, and links to https, http and mailto addresses. Everything else goes: scripts, styles,
/// pictures, forms, frames, every other attribute. The result is balanced, no deeper than 32
/// elements, and no longer than 256 KiB of input can make it. UTF-8.
[[nodiscard]] std::string safeHtml(std::string_view html);

/// Plain text as HTML that shows it line by line.
[[nodiscard]] std::string htmlOfText(std::string_view text);

} // namespace platform
