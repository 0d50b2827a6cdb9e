#include "publisher/appcast_tool.hpp"

#include "platform/updates/archive/unpacker.hpp"
#include "platform/updates/feed/publication_date.hpp"
#include "platform/updates/feed/secure_address.hpp"
#include "platform/updates/feed/signature.hpp"
#include "platform/updates/feed/update_choice.hpp"
#include "platform/updates/feed/version_order.hpp"
#include "publisher/command_line.hpp"
#include "publisher/feed_check.hpp"
#include "publisher/feed_document.hpp"
#include "publisher/files.hpp"
#include "publisher/signing_key.hpp"

#include <exception>
#include <ostream>

namespace publisher {
namespace {

using platform::Appcast;
using platform::AppcastItem;

void requireOrRefuse(bool isFine, const std::string& otherwise) {
    if (!isFine) {
        throw Failure(ExitCode::refused, otherwise);
    }
}

std::string mediaType(const std::string& fileName) {
    return fileName.ends_with(".xz") ? "application/x-xz" : "application/octet-stream";
}

/// A version that comes after all others of the feed, at a later date: all that updaters take.
void requireForward(const Appcast& appcast, const AppcastItem& item) {
    for (const AppcastItem& other : appcast.items) {
        if (other.channel != item.channel ||
            !isForSameSystem(other.enclosure.os, item.enclosure.os)) {
            continue;
        }
        const auto order = platform::compareVersions(other.version, item.version);
        requireOrRefuse(std::is_neq(order), "The feed has version " + other.version + " already.");
        requireOrRefuse(std::is_lt(order), "Version " + item.version +
                                               " would go backwards: the feed has " +
                                               other.version + " already.");
        const auto date = platform::parsePublicationDate(other.pubDate);
        requireOrRefuse(!date || *date <= *platform::parsePublicationDate(item.pubDate),
                        "The date would go backwards: version " + other.version + " is of " +
                            other.pubDate + ".");
    }
}

/// What the command line says of the new item, checked.
AppcastItem describedItem(const AddCommand& add, std::chrono::sys_seconds now) {
    AppcastItem item;
    item.title = add.title;
    item.pubDate = add.date.empty() ? platform::publicationDate(now) : add.date;
    item.shortVersionString = add.shortVersion;
    item.minimumSystemVersion = add.minimumSystem;
    item.channel = add.channel;
    item.phasedRolloutInterval = add.rolloutInterval;
    item.isCritical = add.isCritical;
    item.criticalBelow = add.criticalBelow;
    item.releaseNotesLink = add.notesLink;
    item.enclosure.url = addressOf(add.url, add.archive.filename());
    item.enclosure.type = mediaType(add.archive.filename());
    const auto requireUsage = [](bool isFine, const char* otherwise) {
        if (!isFine) {
            throw Failure(ExitCode::usage, otherwise);
        }
    };
    requireUsage(platform::parsePublicationDate(item.pubDate).has_value(),
                 "--date is not a date like \"Tue, 04 Mar 2025 10:30:00 +0000\".");
    requireUsage(platform::isSecureAddress(item.enclosure.url),
                 "--url has to be a complete https address: updaters refuse every other.");
    requireUsage(!fileNameIn(item.enclosure.url).empty(),
                 "--url has to end in a file's name or \"/\".");
    requireUsage(item.releaseNotesLink.empty() || platform::isSecureAddress(item.releaseNotesLink),
                 "--notes-link has to be a complete https address.");
    requireUsage(item.minimumSystemVersion.empty() ||
                     platform::isVersion(item.minimumSystemVersion),
                 "--minimum-system is not a version.");
    requireUsage(item.criticalBelow.empty() || platform::isVersion(item.criticalBelow),
                 "--critical-below is not a version.");
    if (add.notes) {
        item.description = readText(*add.notes, platform::largestFeed);
    }
    return item;
}

void keygen(const KeygenCommand& command, std::ostream& out) {
    const SigningKey key = SigningKey::create(command.key);
    out << "Private key: " << command.key.string() << " (keep it secret, and keep a copy)\n"
        << "Public key:  " << command.key.string() << ".pub\n"
        << key.publicKey() << '\n';
}

void add(const AddCommand& command, std::ostream& out, std::chrono::sys_seconds now) {
    AppcastItem item = describedItem(command, now);
    const SigningKey key = SigningKey::load(command.key);

    // What is examined, measured and signed is one and the same copy.
    auto archive = readCopy(command.archive, platform::largestArchive);
    std::error_code error;
    const auto bytes = archive.map(error);
    if (error) {
        throw Failure(ExitCode::inputOutput, command.archive.string() + ": " + error.message());
    }
    const auto result = platform::examineArchive(bytes);
    if (const auto* const failure = std::get_if<platform::ArchiveFailure>(&result)) {
        throw Failure(ExitCode::refused,
                      command.archive.string() + ": updaters would refuse it: " + failure->detail);
    }
    const auto& manifest = std::get<platform::UnpackedArchive>(result).manifest;
    requireOrRefuse(platform::isVersion(manifest.version),
                    command.archive.string() + ": its version is none: " + manifest.version);
    item.version = manifest.version;
    if (item.title.empty()) {
        item.title = manifest.product + ' ' + item.displayVersion();
    }
    item.enclosure.os = manifest.platform;
    item.enclosure.length = bytes.size();
    item.enclosure.edSignature = key.sign(bytes);

    const auto lock = lockFolder(command.feed.parent_path());
    const std::string name = command.feed.string();
    const std::string feed = std::filesystem::exists(command.feed)
                                 ? readText(command.feed, platform::largestFeed)
                                 : emptyFeed(manifest.product);
    requireForward(appcastIn(feed, name), item);
    replaceFile(command.feed, withItem(feed, item, name));
    out << item.title << " (version " << item.version << ", " << item.enclosure.os << ", "
        << item.enclosure.length << " bytes) is in " << name << '\n'
        << "Put the archive at " << item.enclosure.url << " first, then publish the feed.\n";
}

ExitCode verify(const VerifyCommand& command, std::ostream& out, std::ostream& errors) {
    const std::string key = publicKeyFrom(command.publicKey);
    const std::string name = command.feed.string();
    const Appcast appcast = appcastIn(readText(command.feed, platform::largestFeed), name);
    const auto problems =
        problemsOf(appcast, command.archives.value_or(command.feed.parent_path()), key);
    for (const std::string& problem : problems) {
        errors << problem << '\n';
    }
    if (!problems.empty()) {
        errors << name << ": not to be published like this (" << problems.size()
               << (problems.size() == 1 ? " problem)\n" : " problems)\n");
        return ExitCode::refused;
    }
    out << name << ": all is well\n";
    for (const AppcastItem& item : appcast.items) {
        out << "  " << item.version << ' ' << item.enclosure.os
            << (item.channel.empty() ? "" : " " + item.channel) << '\n';
    }
    return ExitCode::success;
}

ExitCode run(const Command& command, std::ostream& out, std::ostream& errors,
             std::chrono::sys_seconds now) {
    if (const auto* const keys = std::get_if<KeygenCommand>(&command)) {
        keygen(*keys, out);
    } else if (const auto* const addition = std::get_if<AddCommand>(&command)) {
        add(*addition, out, now);
    } else if (const auto* const verification = std::get_if<VerifyCommand>(&command)) {
        return verify(*verification, out, errors);
    } else {
        out << helpText();
    }
    return ExitCode::success;
}

} // namespace

ExitCode runTool(std::span<const char* const> arguments, std::ostream& out, std::ostream& errors,
                 std::chrono::sys_seconds now) {
    try {
        return run(readCommandLine(arguments), out, errors, now);
    } catch (const Failure& failure) {
        errors << "larkvox-appcast: " << failure.what() << '\n';
        return failure.exitCode();
    } catch (const std::exception& exception) {
        errors << "larkvox-appcast: " << exception.what() << '\n';
        return ExitCode::inputOutput;
    }
}

} // namespace publisher
