#include "app/simple_sparkler_checker.hpp"

#include "core/fatal.hpp"

#include <expat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <type_traits>

namespace larkvox {
namespace {

// Unicode's white space (property White_Space) in UTF-8.
constexpr std::array<std::string_view, 25> whiteSpace{" ",
                                                      "\t",
                                                      "\n",
                                                      "\v",
                                                      "\f",
                                                      "\r",
                                                      "\xC2\x85",
                                                      "\xC2\xA0",
                                                      "\xE1\x9A\x80",
                                                      "\xE2\x80\x80",
                                                      "\xE2\x80\x81",
                                                      "\xE2\x80\x82",
                                                      "\xE2\x80\x83",
                                                      "\xE2\x80\x84",
                                                      "\xE2\x80\x85",
                                                      "\xE2\x80\x86",
                                                      "\xE2\x80\x87",
                                                      "\xE2\x80\x88",
                                                      "\xE2\x80\x89",
                                                      "\xE2\x80\x8A",
                                                      "\xE2\x80\xA8",
                                                      "\xE2\x80\xA9",
                                                      "\xE2\x80\xAF",
                                                      "\xE2\x81\x9F",
                                                      "\xE3\x80\x80"};

/// Bytes of versions in one document; real feeds have a few kilobytes.
constexpr std::size_t mostCollected = 16 << 20;

std::string_view trimmed(std::string_view text) {
    const auto drop = [&text](auto matches, auto remove) {
        const auto found = std::ranges::find_if(whiteSpace, matches);
        if (found == whiteSpace.end()) {
            return false;
        }
        remove(found->size());
        return true;
    };
    while (drop([&](auto space) { return text.starts_with(space); },
                [&](auto size) { text.remove_prefix(size); })) {
    }
    while (drop([&](auto space) { return text.ends_with(space); },
                [&](auto size) { text.remove_suffix(size); })) {
    }
    return text;
}

/// The whole piece as a decimal integer with an optional sign, else 0.
std::int64_t pieceValue(std::string_view piece) {
    if (piece.starts_with('+')) {
        piece.remove_prefix(1);
        if (piece.starts_with('-')) {
            return 0;
        }
    }
    std::int64_t value = 0;
    const char* const end = piece.data() + piece.size();
    const auto [stop, error] = std::from_chars(piece.data(), end, value);
    return error == std::errc() && stop == end ? value : 0;
}

} // namespace

void SimpleSparklerChecker::parse(std::string_view data) {
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), &XML_ParserFree);
    if (parser == nullptr) {
        return;
    }
    struct Reading {
        SimpleSparklerChecker& checker;
        XML_Parser parser;
        std::size_t collected = 0; // bytes
    } reading{*this, parser.get()};
    XML_SetUserData(parser.get(), &reading);
    XML_SetElementHandler(
        parser.get(),
        [](void* user, const XML_Char* name, const XML_Char**) {
            // Without namespace processing the name is the qualified one.
            static_cast<Reading*>(user)->checker.didStartElement(name, name);
        },
        [](void* user, const XML_Char*) {
            auto& [checker, xml, collected] = *static_cast<Reading*>(user);
            const std::size_t count = checker.versions.size();
            checker.didEndElement();
            // A long version before many end tags would be collected without bound.
            if (checker.versions.size() > count &&
                (collected += checker.versions.back().size()) > mostCollected) {
                XML_StopParser(xml, XML_FALSE);
            }
        });
    XML_SetCharacterDataHandler(parser.get(), [](void* user, const XML_Char* text, int length) {
        static_cast<Reading*>(user)->checker.foundCharacters(
            {text, static_cast<std::size_t>(length)});
    });
    // Entities can grow without bound, and a feed needs none.
    XML_SetEntityDeclHandler(parser.get(), [](void* user, const XML_Char*, int, const XML_Char*,
                                              int, const XML_Char*, const XML_Char*,
                                              const XML_Char*, const XML_Char*) {
        XML_StopParser(static_cast<Reading*>(user)->parser, XML_FALSE);
    });
    constexpr std::size_t largestPart = 1 << 20; // the parser counts in int
    do {
        const std::string_view part = data.substr(0, largestPart);
        data.remove_prefix(part.size());
        if (XML_Parse(parser.get(), part.data(), static_cast<int>(part.size()), data.empty()) !=
            XML_STATUS_OK) {
            return;
        }
    } while (!data.empty());
}

void SimpleSparklerChecker::didStartElement(std::string_view elementName,
                                            std::optional<std::string_view> qualifiedName) {
    currentElement = qualifiedName.value_or(elementName);
    currentValue.clear();
}

void SimpleSparklerChecker::foundCharacters(std::string_view characters) {
    currentValue += characters;
}

void SimpleSparklerChecker::didEndElement() {
    if (currentElement == "sparkle:shortVersionString") {
        versions.emplace_back(trimmed(currentValue));
    }
}

std::optional<std::string> SimpleSparklerChecker::latestVersion() const {
    const auto lowest = std::ranges::min_element(
        versions, {}, [](const std::string& version) { return versionScore(version); });
    return lowest == versions.end() ? std::nullopt : std::optional(*lowest);
}

std::int64_t SimpleSparklerChecker::versionScore(std::string_view version) {
    std::int64_t score = 0;
    std::int64_t weight = 10000;
    while (!version.empty()) {
        const std::string_view piece = version.substr(0, version.find('.'));
        version.remove_prefix(std::min(piece.size() + 1, version.size()));
        if (piece.empty()) {
            continue;
        }
        std::int64_t weighted = 0;
        if (__builtin_mul_overflow(pieceValue(piece), weight, &weighted) ||
            __builtin_add_overflow(score, weighted, &score)) {
            core::fatal("arithmetic overflow in a version score");
        }
        weight = std::max<std::int64_t>(weight / 100, 1);
    }
    return score;
}

} // namespace larkvox
