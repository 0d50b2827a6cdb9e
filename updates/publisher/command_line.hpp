#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <variant>

// The publisher's program has one thread.
namespace updates {

/// Says how the program is used.
struct HelpCommand {};

/// Makes a pair of keys.
struct KeygenCommand {
    std::filesystem::path key;
};

/// Signs an archive and writes its item into a feed.
struct AddCommand {
    std::filesystem::path archive;
    std::filesystem::path feed;
    std::filesystem::path key;
    std::string url; ///< of the archive, or of its folder with "/" at the end
    std::string title;
    std::string shortVersion;
    std::optional<std::filesystem::path> notes; ///< a file with HTML
    std::string notesLink;
    std::string minimumSystem;
    std::string channel;
    std::optional<std::chrono::hours> rolloutInterval;
    bool isCritical = false;
    std::string criticalBelow;
    std::string date;            ///< as in feeds; empty: now
    std::chrono::days valid{90}; ///< from now on the feed counts so long
    std::string newKey; ///< the archive may trust this public key in place of the signing one
};

/// Signs a feed anew: before it expires, or after it was changed by hand.
struct SignCommand {
    std::filesystem::path feed;
    std::filesystem::path key;
    std::chrono::days valid{90};
};

/// Checks a feed and its archives.
struct VerifyCommand {
    std::filesystem::path feed;
    std::string publicKey;                         ///< in base64, or a file that has it
    std::optional<std::filesystem::path> archives; ///< their folder; absent: the feed's
    std::string newKey;                            ///< as when adding
};

using Command = std::variant<HelpCommand, KeygenCommand, AddCommand, SignCommand, VerifyCommand>;

/// Reads the arguments (without the program's name); fails with a hint when they make no sense.
[[nodiscard]] Command readCommandLine(std::span<const char* const> arguments);

/// What `--help` prints.
[[nodiscard]] const char* helpText();

} // namespace updates
