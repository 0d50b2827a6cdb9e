#include "updates/feed/version_order.hpp"

#include <algorithm>

namespace updates {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// Takes what matches from the beginning of a text.
template<class Matches>
std::string_view takeWhile(std::string_view& text, Matches matches) {
    const auto end = std::ranges::find_if_not(text, matches);
    const auto taken = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(taken.size());
    return taken;
}

std::strong_ordering compareNumbers(std::string_view left, std::string_view right) {
    const auto isZero = [](char c) { return c == '0'; };
    takeWhile(left, isZero);
    takeWhile(right, isZero);
    const auto bySize = left.size() <=> right.size();
    return std::is_neq(bySize) ? bySize : left.compare(right) <=> 0;
}

std::strong_ordering compareWords(std::string_view left, std::string_view right) {
    return std::lexicographical_compare_three_way(
        left.begin(), left.end(), right.begin(), right.end(),
        [](char a, char b) { return lowered(a) <=> lowered(b); });
}

/// A version taken apart.
struct Parts {
    std::string_view numbers;    // with points
    std::string_view preRelease; // from its first letter or sign on

    explicit Parts(std::string_view text) {
        text = text.substr(0, text.find('+'));
        if (text.size() > 1 && lowered(text[0]) == 'v' && isDigit(text[1])) {
            text.remove_prefix(1);
        }
        numbers = takeWhile(text, [](char c) { return isDigit(c) || c == '.'; });
        preRelease = text;
    }

    /// The next number, and a point after it; empty for none.
    std::string_view nextNumber() {
        takeWhile(numbers, [](char c) { return c == '.'; });
        return takeWhile(numbers, isDigit);
    }

    /// The next digits or letters of the pre-release; empty when it is over.
    std::string_view nextIdentifier() {
        takeWhile(preRelease, [](char c) { return !isDigit(c) && !isLetter(c); });
        const bool isNumber = !preRelease.empty() && isDigit(preRelease.front());
        return takeWhile(preRelease, isNumber ? isDigit : isLetter);
    }
};

std::strong_ordering comparePreReleases(Parts left, Parts right) {
    for (;;) {
        const auto a = left.nextIdentifier();
        const auto b = right.nextIdentifier();
        if (a.empty() || b.empty()) {
            return b.empty() <=> a.empty();
        }
        const bool isNumberA = isDigit(a.front());
        const bool isNumberB = isDigit(b.front());
        const auto order = isNumberA != isNumberB ? isNumberB <=> isNumberA
                           : isNumberA            ? compareNumbers(a, b)
                                                  : compareWords(a, b);
        if (std::is_neq(order)) {
            return order;
        }
    }
}

} // namespace

std::strong_ordering compareVersions(std::string_view left, std::string_view right) {
    Parts a(left);
    Parts b(right);
    while (!a.numbers.empty() || !b.numbers.empty()) {
        // In its own statements: each takes a number away.
        const auto numberA = a.nextNumber();
        const auto numberB = b.nextNumber();
        if (const auto order = compareNumbers(numberA, numberB); std::is_neq(order)) {
            return order;
        }
    }
    const auto byRelease = a.preRelease.empty() <=> b.preRelease.empty();
    return std::is_neq(byRelease) ? byRelease : comparePreReleases(a, b);
}

bool isVersion(std::string_view text) {
    return !text.empty() && text.size() <= 64 && isDigit(text.front()) &&
           text.find("..") == std::string_view::npos && std::ranges::all_of(text, [](char c) {
               return isDigit(c) || isLetter(c) || c == '.' || c == '-' || c == '_' || c == '+';
           });
}

} // namespace updates
