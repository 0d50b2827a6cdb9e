#include "updates/install/install_protocol.hpp"

#include <nlohmann/json.hpp>

#include <charconv>

namespace updates {
namespace {

using Json = nlohmann::json;

// What a line is stands in its "is", and beside it what that kind has to say.

Json jsonOf(const InstallVerifying& /*message*/) {
    return {{"is", "verifying"}};
}
Json jsonOf(const InstallProgress& message) {
    return {{"is", "unpacking"}, {"done", message.done}, {"total", message.total}};
}
Json jsonOf(const InstallReady& /*message*/) {
    return {{"is", "ready"}};
}
Json jsonOf(const InstallDone& message) {
    return {{"is", "installed"}, {"version", message.version}};
}
Json jsonOf(const Refusal& message) {
    return {{"is", "refused"},
            {"problem", static_cast<int>(message.problem)},
            {"detail", message.detail}};
}

template<class Number>
bool readNumber(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end;
}

std::optional<InstallMessage> messageIn(const Json& object) {
    const std::string is = object.at("is");
    if (is == "verifying") {
        return InstallVerifying{};
    }
    if (is == "ready") {
        return InstallReady{};
    }
    if (is == "installed") {
        return InstallDone{object.at("version")};
    }
    if (is == "unpacking") {
        const InstallProgress progress{object.at("done"), object.at("total")};
        return progress.done <= progress.total ? std::optional(progress) : std::nullopt;
    }
    const int problem = object.at("problem");
    return is == "refused" && problem >= 0 && problem <= static_cast<int>(lastUpdateProblem)
               ? std::optional(Refusal{static_cast<UpdateProblem>(problem), object.at("detail")})
               : std::nullopt;
}

} // namespace

std::vector<std::string> installArguments(const InstallRequest& request) {
    return {request.root.string(),
            std::to_string(request.archive),
            std::to_string(request.length),
            request.signature,
            request.version,
            request.installed};
}

std::optional<InstallRequest> readInstallArguments(std::span<const char* const> arguments) {
    InstallRequest request;
    if (arguments.size() != installArguments(request).size()) {
        return std::nullopt;
    }
    request.root = arguments[0];
    request.signature = arguments[3];
    request.version = arguments[4];
    request.installed = arguments[5];
    const bool isSense = readNumber(arguments[1], request.archive) && request.archive >= 0 &&
                         readNumber(arguments[2], request.length) && request.root.is_absolute() &&
                         !request.version.empty() && !request.installed.empty();
    return isSense ? std::optional(request) : std::nullopt;
}

std::string installLine(const InstallMessage& message) {
    const Json json = std::visit([](const auto& one) { return jsonOf(one); }, message);
    return json.dump(-1, ' ', true, Json::error_handler_t::replace);
}

std::optional<InstallMessage> readInstallLine(std::string_view line) noexcept {
    try {
        return messageIn(Json::parse(line));
    } catch (...) { // no JSON, or not what it should hold
        return std::nullopt;
    }
}

} // namespace updates
