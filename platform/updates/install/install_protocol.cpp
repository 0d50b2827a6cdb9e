#include "platform/updates/install/install_protocol.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace platform {
namespace {

constexpr std::array<std::pair<InstallFault, std::string_view>, 18> faultNames{{
    {InstallFault::signatureMissing, "signature-missing"},
    {InstallFault::signatureMalformed, "signature-malformed"},
    {InstallFault::signatureWrong, "signature-wrong"},
    {InstallFault::lengthDiffers, "length-differs"},
    {InstallFault::archiveUnreadable, "archive-unreadable"},
    {InstallFault::archiveUnsafe, "archive-unsafe"},
    {InstallFault::archiveTooLarge, "archive-too-large"},
    {InstallFault::otherProduct, "other-product"},
    {InstallFault::otherPlatform, "other-platform"},
    {InstallFault::otherVersion, "other-version"},
    {InstallFault::notNewer, "not-newer"},
    {InstallFault::alreadyInstalled, "already-installed"},
    {InstallFault::busy, "busy"},
    {InstallFault::noSpace, "no-space"},
    {InstallFault::noPermission, "no-permission"},
    {InstallFault::readOnly, "read-only"},
    {InstallFault::inputOutput, "input-output"},
    {InstallFault::cannotUpdate, "cannot-update"},
}};

template<class Number>
std::optional<Number> readNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || text.empty()) {
        return std::nullopt;
    }
    return number;
}

/// Takes the first word and the space behind it off a line.
std::string_view takeWord(std::string_view& line) {
    const std::string_view word = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(line.size(), word.size() + 1));
    return word;
}

std::string oneLine(std::string text) {
    std::ranges::replace_if(
        text, [](unsigned char c) { return c < ' ' || c == 0x7f; }, ' ');
    return text;
}

} // namespace

std::string_view wireName(InstallFault fault) {
    const auto* const found = std::ranges::find(faultNames, fault, [](auto& e) { return e.first; });
    return found == faultNames.end() ? "input-output" : found->second;
}

std::optional<InstallFault> installFaultNamed(std::string_view wireName) {
    const auto* const found =
        std::ranges::find(faultNames, wireName, [](auto& entry) { return entry.second; });
    return found == faultNames.end() ? std::nullopt : std::optional(found->first);
}

std::vector<std::string> installArguments(const InstallRequest& request) {
    return {"--root",       request.root.string(),
            "--archive-fd", std::to_string(request.archive),
            "--length",     std::to_string(request.length),
            "--signature",  request.signature,
            "--version",    request.version,
            "--installed",  request.installed};
}

std::optional<InstallRequest> readInstallArguments(std::span<const char* const> arguments) {
    constexpr std::array<std::string_view, 6> names{"--root",      "--archive-fd", "--length",
                                                    "--signature", "--version",    "--installed"};
    std::array<std::optional<std::string_view>, names.size()> values;
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        const auto* const name = std::ranges::find(names, std::string_view(arguments[i]));
        if (name == names.end() || i + 1 == arguments.size()) {
            return std::nullopt;
        }
        auto& value = values[static_cast<std::size_t>(name - names.begin())];
        if (value) {
            return std::nullopt;
        }
        value = arguments[i + 1];
    }
    if (!std::ranges::all_of(values, [](const auto& value) { return value.has_value(); })) {
        return std::nullopt;
    }
    const auto archive = readNumber<int>(*values[1]);
    const auto length = readNumber<std::uint64_t>(*values[2]);
    const std::filesystem::path root(*values[0]);
    if (!archive || *archive < 0 || !length || !root.is_absolute() || values[4]->empty() ||
        values[5]->empty()) {
        return std::nullopt;
    }
    return InstallRequest{root,
                          *archive,
                          *length,
                          std::string(*values[3]),
                          std::string(*values[4]),
                          std::string(*values[5])};
}

std::string installLine(const InstallMessage& message) {
    struct Writer {
        std::string operator()(InstallVerifying) const { return "verifying"; }
        std::string operator()(const InstallProgress& progress) const {
            return "progress " + std::to_string(progress.done) + ' ' +
                   std::to_string(progress.total);
        }
        std::string operator()(InstallReady) const { return "ready"; }
        std::string operator()(const InstallDone& done) const {
            return "installed " + oneLine(done.version);
        }
        std::string operator()(const InstallRefused& refused) const {
            std::string line = "refused " + std::string(wireName(refused.fault));
            return refused.detail.empty() ? line : line + ' ' + oneLine(refused.detail);
        }
    };
    return std::visit(Writer{}, message);
}

std::optional<InstallMessage> readInstallLine(std::string_view line) {
    const std::string_view kind = takeWord(line);
    if (kind == "verifying" && line.empty()) {
        return InstallVerifying{};
    }
    if (kind == "ready" && line.empty()) {
        return InstallReady{};
    }
    if (kind == "progress") {
        const auto done = readNumber<std::uint64_t>(takeWord(line));
        const auto total = readNumber<std::uint64_t>(line);
        if (done && total && *done <= *total) {
            return InstallProgress{*done, *total};
        }
    }
    if (kind == "installed" && !line.empty()) {
        return InstallDone{std::string(line)};
    }
    if (kind == "refused") {
        if (const auto fault = installFaultNamed(takeWord(line))) {
            return InstallRefused{*fault, std::string(line)};
        }
    }
    return std::nullopt;
}

std::string_view installLine(InstallCommand command) {
    return command == InstallCommand::install ? "install" : "cancel";
}

std::optional<InstallCommand> readInstallCommand(std::string_view line) {
    for (const InstallCommand command : {InstallCommand::install, InstallCommand::cancel}) {
        if (line == installLine(command)) {
            return command;
        }
    }
    return std::nullopt;
}

} // namespace platform
