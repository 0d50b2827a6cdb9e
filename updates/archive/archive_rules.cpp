#include "updates/archive/archive_rules.hpp"

#include "updates/feed/version_order.hpp"

#include <algorithm>
#include <string_view>

namespace updates {
namespace {

using Kind = ArchiveEntry::Kind;

constexpr std::size_t longestName = 1024;
constexpr std::size_t longestPart = 200;
constexpr std::ptrdiff_t deepestFolder = 24;

/// Names have letters, digits and signs of ASCII: no other writing that is read in two ways.
bool isPlainName(std::string_view name) {
    if (name.empty() || name.size() > longestName ||
        std::ranges::count(name, '/') > deepestFolder ||
        !std::ranges::all_of(name, [](char c) { return c >= ' ' && c <= '~' && c != '\\'; })) {
        return false;
    }
    while (true) {
        const std::string_view part = name.substr(0, name.find('/'));
        if (part.empty() || part.size() > longestPart || part == "." || part == "..") {
            return false;
        }
        if (part.size() == name.size()) {
            return true;
        }
        name.remove_prefix(part.size() + 1);
    }
}

/// A name as it may be shown in a report.
std::string shown(std::string_view name) {
    std::string text(name.substr(0, 80));
    std::ranges::replace_if(
        text, [](char c) { return c < ' ' || c > '~'; }, '?');
    return '"' + text + '"';
}

Refusal unsafe(std::string_view what, std::string_view name) {
    return {UpdateProblem::archiveUnsafe, std::string(what) + ": " + shown(name)};
}

Refusal tooLarge(std::string what) {
    return {UpdateProblem::archiveTooLarge, std::move(what)};
}

} // namespace

std::variant<ArchiveRules::Place, Refusal> ArchiveRules::admit(const ArchiveEntry& entry) {
    if (++entries_ > mostArchiveEntries) {
        return tooLarge("more than " + std::to_string(mostArchiveEntries) + " entries");
    }
    std::string name = entry.name;
    if (entry.kind == Kind::folder && name.ends_with('/')) {
        name.pop_back();
    }
    if (!isPlainName(name)) {
        return unsafe("not a plain name", entry.name);
    }
    if (entry.kind == Kind::other) {
        return unsafe("neither file nor folder", name);
    }
    if ((entry.mode & 07000U) != 0) {
        return unsafe("would run with other rights", name);
    }
    if (entry.size > bytesLeft_) {
        return tooLarge("unpacks to too many bytes");
    }
    if (!names_.insert(name).second) {
        return unsafe("comes twice", name);
    }
    const auto slash = name.rfind('/');
    if (slash == std::string::npos) {
        if (!top_.empty() || entry.kind != Kind::folder) {
            return unsafe("beside the one top folder", name);
        }
        top_ = name;
    } else if (!folders_.contains(name.substr(0, slash))) {
        return unsafe("comes before its folder", name);
    }
    if (entry.kind == Kind::folder) {
        folders_.insert(name);
    }
    return slash == std::string::npos ? Place{}
                                      : admitInTopFolder(entry, name.substr(top_.size() + 1));
}

std::variant<ArchiveRules::Place, Refusal> ArchiveRules::admitInTopFolder(const ArchiveEntry& entry,
                                                                          const std::string& path) {
    constexpr std::string_view versions = "versions/";
    if (!path.starts_with(versions)) {
        if (path == "current" && entry.kind == Kind::link) {
            currentTarget_ = entry.linkTarget;
            return Place{};
        }
        const bool isAtTop = path.find('/') == std::string::npos;
        if (isAtTop && entry.kind == (path == "versions" ? Kind::folder : Kind::file)) {
            return Place{};
        }
        return unsafe("not in a version's folder", path);
    }
    if (entry.kind == Kind::link) {
        return unsafe("a link", path);
    }
    const std::string_view inside = std::string_view(path).substr(versions.size());
    if (const auto slash = inside.find('/'); slash != std::string_view::npos) {
        return Place{std::string(inside.substr(slash + 1))};
    }
    // The version's own folder: what lies in any other was refused for want of its folder.
    if (entry.kind != Kind::folder || !version_.empty() || !isVersion(inside)) {
        return unsafe("not the one version", path);
    }
    version_ = inside;
    return Place{};
}

bool ArchiveRules::admitBytes(std::uint64_t count) {
    if (count > bytesLeft_) {
        return false;
    }
    bytesLeft_ -= count;
    return true;
}

} // namespace updates
