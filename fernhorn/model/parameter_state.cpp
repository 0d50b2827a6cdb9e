#include "fernhorn/model/parameter_state.hpp"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace fernhorn {
namespace {

// Numbers have 32 bits: they are written as short as they can be read back.
using Json = nlohmann::basic_json<std::map, std::vector, std::string, bool, std::int64_t,
                                  std::uint64_t, float>;

constexpr auto versionKey = "version";
constexpr auto valuesKey = "parameters";
constexpr auto textsKey = "texts";

} // namespace

std::string ParameterState::text() const {
    Json json{{versionKey, version}, {valuesKey, Json::object()}, {textsKey, Json::object()}};
    for (const auto& [identifier, value] : values) {
        json[valuesKey][identifier] = value;
    }
    for (const auto& [name, text] : texts) {
        json[textsKey][name] = text;
    }
    // What is no UTF-8 must not make a host's saving fail.
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::optional<ParameterState> ParameterState::fromText(std::string_view text) {
    const Json json = Json::parse(text, nullptr, false);
    if (!json.is_object() || !json.contains(versionKey) || !json.contains(valuesKey)) {
        return std::nullopt;
    }
    const Json& version = json[versionKey];
    const Json& values = json[valuesKey];
    const Json texts = json.value(textsKey, Json::object());
    if (!version.is_number_unsigned() ||
        version.get<std::uint64_t>() > std::numeric_limits<int>::max() || version == 0 ||
        !values.is_object() || !texts.is_object()) {
        return std::nullopt;
    }
    ParameterState state{.version = version.get<int>()};
    for (const auto& [identifier, value] : values.items()) {
        if (!value.is_number() || !std::isfinite(value.get<float>())) {
            return std::nullopt;
        }
        state.values.emplace(identifier, value.get<float>());
    }
    for (const auto& [name, value] : texts.items()) {
        if (!value.is_string()) {
            return std::nullopt;
        }
        state.texts.emplace(name, value.get<std::string>());
    }
    return state;
}

} // namespace fernhorn
