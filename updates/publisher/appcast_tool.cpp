#include "updates/publisher/appcast_tool.hpp"

#include "updates/archive/unpacker.hpp"
#include "updates/feed/publication_date.hpp"
#include "updates/feed/secure_address.hpp"
#include "updates/feed/signature.hpp"
#include "updates/feed/update_choice.hpp"
#include "updates/feed/version_order.hpp"
#include "updates/publisher/command_line.hpp"
#include "updates/publisher/feed_check.hpp"
#include "updates/publisher/feed_document.hpp"
#include "updates/publisher/files.hpp"
#include "updates/publisher/signing_key.hpp"

#include <exception>
#include <ostream>

namespace updates {
namespace {

using updates::Appcast;
using updates::AppcastItem;

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
        const auto order = updates::compareVersions(other.version, item.version);
        requireOrRefuse(std::is_neq(order), "The feed has version " + other.version + " already.");
        requireOrRefuse(std::is_lt(order), "Version " + item.version +
                                               " would go backwards: the feed has " +
                                               other.version + " already.");
        const auto date = updates::parsePublicationDate(other.pubDate);
        requireOrRefuse(!date || *date <= *updates::parsePublicationDate(item.pubDate),
                        "The date would go backwards: version " + other.version + " is of " +
                            other.pubDate + ".");
    }
}

/// What the command line says of the new item, checked.
AppcastItem describedItem(const AddCommand& add, std::chrono::sys_seconds now) {
    AppcastItem item;
    item.title = add.title;
    item.pubDate = add.date.empty() ? updates::publicationDate(now) : add.date;
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
    requireUsage(updates::parsePublicationDate(item.pubDate).has_value(),
                 "--date is not a date like \"Tue, 04 Mar 2025 10:30:00 +0000\".");
    requireUsage(updates::isSecureAddress(item.enclosure.url),
                 "--url has to be a complete https address: updaters refuse every other.");
    requireUsage(!fileNameIn(item.enclosure.url).empty(),
                 "--url has to end in a file's name or \"/\".");
    requireUsage(item.releaseNotesLink.empty() || updates::isSecureAddress(item.releaseNotesLink),
                 "--notes-link has to be a complete https address.");
    requireUsage(item.minimumSystemVersion.empty() || updates::isVersion(item.minimumSystemVersion),
                 "--minimum-system is not a version.");
    requireUsage(item.criticalBelow.empty() || updates::isVersion(item.criticalBelow),
                 "--critical-below is not a version.");
    if (add.notes) {
        item.description = readText(*add.notes, updates::largestFeed);
    }
    return item;
}

std::filesystem::path statementFile(const std::filesystem::path& feed) {
    return feed.string() + std::string(updates::feedStatementSuffix);
}

/// The text beside a feed; empty where there is none.
std::string statementOf(const std::filesystem::path& feed) {
    const auto file = statementFile(feed);
    return std::filesystem::exists(file) ? readText(file, updates::largestFeedStatement)
                                         : std::string();
}

void writeStatement(const std::filesystem::path& file, std::string_view feed, const SigningKey& key,
                    std::chrono::sys_seconds now, std::chrono::days valid, std::ostream& out) {
    const auto statement = signedStatement(feed, statementOf(file), key, now, valid);
    replaceFile(statementFile(file), updates::feedStatementText(statement));
    out << statementFile(file).string() << ": signed, no. " << statement.serial
        << "; renew it with \"sign\" before " << updates::publicationDate(statement.expires)
        << '\n';
}

void keygen(const KeygenCommand& command, std::ostream& out) {
    const SigningKey key = SigningKey::create(command.key);
    out << "Private key: " << command.key.string() << " (keep it secret, and keep a copy)\n"
        << "Public key:  " << command.key.string() << ".pub\n"
        << key.publicKey() << '\n';
}

std::string keyOrNone(const std::string& keyOrFile) {
    return keyOrFile.empty() ? std::string() : publicKeyFrom(keyOrFile);
}

void add(const AddCommand& command, std::ostream& out, std::chrono::sys_seconds now) {
    AppcastItem item = describedItem(command, now);
    const SigningKey key = SigningKey::load(command.key);

    // What is examined, measured and signed is one and the same copy.
    auto archive = readCopy(command.archive, updates::largestArchive);
    std::error_code error;
    const auto bytes = archive.map(error);
    if (error) {
        throw Failure(ExitCode::inputOutput, command.archive.string() + ": " + error.message());
    }
    const auto result = updates::examineArchive(bytes);
    if (const auto* const failure = std::get_if<updates::Refusal>(&result)) {
        throw Failure(ExitCode::refused,
                      command.archive.string() + ": updaters would refuse it: " + failure->detail);
    }
    const auto& manifest = std::get<updates::UnpackedArchive>(result).manifest;
    requireOrRefuse(updates::isVersion(manifest.version),
                    command.archive.string() + ": its version is none: " + manifest.version);
    const auto problem = keyProblem(manifest, key.publicKey(), keyOrNone(command.newKey));
    requireOrRefuse(!problem, command.archive.string() + ": " + problem.value_or(""));
    item.version = manifest.version;
    if (item.title.empty()) {
        item.title = manifest.product + ' ' + item.displayVersion();
    }
    item.enclosure.os = manifest.platform;
    item.enclosure.length = bytes.size();
    item.enclosure.edSignature = key.sign(bytes);

    const auto lock = lockFolder(command.feed.parent_path());
    const std::string name = command.feed.string();
    std::string feed = emptyFeed(manifest.product);
    if (std::filesystem::exists(command.feed)) {
        feed = readText(command.feed, updates::largestFeed);
        requireForward(appcastIn(feed, name), item);
        // Signing it anew would vouch for whatever somebody else wrote into it, too.
        requireSigned(feed, statementOf(command.feed), key.publicKey(), name);
    }
    feed = withItem(feed, item, name);
    replaceFile(command.feed, feed);
    writeStatement(command.feed, feed, key, now, command.valid, out);
    out << item.title << " (version " << item.version << ", " << item.enclosure.os << ", "
        << item.enclosure.length << " bytes) is in " << name << '\n'
        << "Put the archive at " << item.enclosure.url
        << " first, then publish the feed and its signature.\n";
}

void sign(const SignCommand& command, std::ostream& out, std::chrono::sys_seconds now) {
    const SigningKey key = SigningKey::load(command.key);
    const auto lock = lockFolder(command.feed.parent_path());
    const std::string feed = readText(command.feed, updates::largestFeed);
    [[maybe_unused]] const Appcast appcast = appcastIn(feed, command.feed.string());
    writeStatement(command.feed, feed, key, now, command.valid, out);
}

ExitCode verify(const VerifyCommand& command, std::ostream& out, std::ostream& errors,
                std::chrono::sys_seconds now) {
    const std::string key = publicKeyFrom(command.publicKey);
    const std::string name = command.feed.string();
    const std::string feed = readText(command.feed, updates::largestFeed);
    const std::string statement = statementOf(command.feed);
    requireSigned(feed, statement, key, name, now);
    const Appcast appcast = appcastIn(feed, name);
    const auto problems = problemsOf(appcast, command.archives.value_or(command.feed.parent_path()),
                                     key, keyOrNone(command.newKey));
    for (const std::string& problem : problems) {
        errors << problem << '\n';
    }
    if (!problems.empty()) {
        errors << name << ": not to be published like this (" << problems.size()
               << (problems.size() == 1 ? " problem)\n" : " problems)\n");
        return ExitCode::refused;
    }
    out << name << ": all is well, until "
        << updates::publicationDate(updates::readFeedStatement(statement)->expires) << '\n';
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
        return verify(*verification, out, errors, now);
    } else if (const auto* const signing = std::get_if<SignCommand>(&command)) {
        sign(*signing, out, now);
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

} // namespace updates
