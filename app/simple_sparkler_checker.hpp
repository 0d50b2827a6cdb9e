#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkvox {

/// Collects the short version strings of appcast documents and selects one by a numeric score. It
/// does no networking and has no locking: one thread at a time.
class SimpleSparklerChecker {
  public:
    /// Every version collected so far, in document order, over all calls of `parse`. An end tag
    /// that follows another without a start tag in between collects the last version again.
    std::vector<std::string> versions;
    /// The qualified name of the element that started last.
    std::string currentElement;
    /// The text since then (UTF-8).
    std::string currentValue;

    /// Reads an XML document. Malformed XML, a document that declares an entity, or one with more
    /// than 16 MiB of versions, ends the reading there; what was collected before stays.
    void parse(std::string_view data);

    // What the parser calls. An element without a qualified name goes by its plain one.
    void didStartElement(std::string_view elementName,
                         std::optional<std::string_view> qualifiedName);
    void foundCharacters(std::string_view characters);
    void didEndElement();

    /// The version with the lowest score, the earliest among equals; nothing without versions.
    [[nodiscard]] std::optional<std::string> latestVersion() const;

    /// The first piece between points × 10000, plus the second × 100, plus every further piece; a
    /// piece that is not a decimal integer counts 0, and empty pieces do not count. Stops the
    /// program when the sum does not fit 64 bits.
    [[nodiscard]] static std::int64_t versionScore(std::string_view version);
};

} // namespace larkvox
