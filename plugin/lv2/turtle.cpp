#include "plugin/lv2/turtle.hpp"

#include "plugin/lv2/ports.hpp"
#include "plugin/lv2/window_state.hpp"

#include <charconv>
#include <vector>

namespace larkvox {

namespace {

using Unit = platform::AudioUnitParameterUnit;

constexpr const char* prefixes = R"(@prefix atom:  <http://lv2plug.in/ns/ext/atom#> .
@prefix doap:  <http://usefulinc.com/ns/doap#> .
@prefix foaf:  <http://xmlns.com/foaf/0.1/> .
@prefix lv2:   <http://lv2plug.in/ns/lv2core#> .
@prefix opts:  <http://lv2plug.in/ns/ext/options#> .
@prefix pg:    <http://lv2plug.in/ns/ext/port-groups#> .
@prefix pprop: <http://lv2plug.in/ns/ext/port-props#> .
@prefix rdf:   <http://www.w3.org/1999/02/22-rdf-syntax-ns#> .
@prefix rdfs:  <http://www.w3.org/2000/01/rdf-schema#> .
@prefix state: <http://lv2plug.in/ns/ext/state#> .
@prefix ui:    <http://lv2plug.in/ns/extensions/ui#> .
@prefix units: <http://lv2plug.in/ns/extensions/units#> .
@prefix urid:  <http://lv2plug.in/ns/ext/urid#> .

)";

std::string angled(const std::string& uri) {
    return "<" + uri + ">";
}
std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\""; // none of ours has a quotation mark
}

/// A decimal number as turtle writes it.
std::string number(float value) {
    char text[32];
    const auto end =
        std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed);
    std::string written(text, end.ptr);
    return written.find('.') == std::string::npos ? written + ".0" : written;
}

const char* unitName(Unit unit) {
    switch (unit) {
    case Unit::percent:
        return "units:pc";
    case Unit::hertz:
        return "units:hz";
    case Unit::decibels:
        return "units:db";
    case Unit::milliseconds:
        return "units:ms";
    case Unit::cents:
    case Unit::absoluteCents:
        return "units:cent";
    case Unit::degrees:
        return "units:degree";
    default:
        return nullptr;
    }
}

struct GroupName {
    const char* symbol;
    const char* name;
};
GroupName nameOf(ParameterGroup group) {
    switch (group) {
    case ParameterGroup::voice:
        return {"voice", "Voice"};
    case ParameterGroup::carrier:
        return {"oscillator", "Carrier"};
    case ParameterGroup::motion:
        return {"motion", "Motion"};
    case ParameterGroup::bands:
        return {"bandGains", "Band gains"};
    case ParameterGroup::window:
        break;
    }
    return {"window", "Window"};
}
std::string uriOf(const char* group) {
    return angled(std::string(pluginUri) + "#" + group);
}

std::string audioPort(AudioPort port, const char* symbol, const char* name,
                      const std::string& further) {
    const char* const direction = port < left ? "lv2:InputPort" : "lv2:OutputPort";
    return std::string("    [ a lv2:AudioPort, ") + direction + " ;\n      lv2:index " +
           std::to_string(port) + " ; lv2:symbol " + quoted(symbol) + " ; lv2:name " +
           quoted(name) + " ;\n      " + further + " ]";
}

std::string controlPort(std::size_t address) {
    const auto& description = vocoderParameters().at(address);
    std::string text = "    [ a lv2:ControlPort, lv2:InputPort ;\n      lv2:index " +
                       std::to_string(portOf(address)) + " ; lv2:symbol " +
                       quoted(description.identifier) + " ; lv2:name " + quoted(description.name) +
                       " ;\n      lv2:default " + number(description.defaultValue) +
                       " ; lv2:minimum " + number(description.range.lower) + " ; lv2:maximum " +
                       number(description.range.upper) + " ;\n      pg:group " +
                       uriOf(nameOf(description.group).symbol);
    if (const char* const unit = unitName(description.unit)) {
        text += " ; units:unit " + std::string(unit);
    }
    if (description.unit == Unit::boolean) {
        text += " ; lv2:portProperty lv2:toggled";
    } else if (description.unit == Unit::indexed) {
        text += " ; lv2:portProperty lv2:integer, lv2:enumeration";
    } else if (description.increment.isLogarithmic() && description.range.lower > 0) {
        text += " ; lv2:portProperty pprop:logarithmic";
    }
    for (std::size_t i = 0; i < description.names.size(); ++i) {
        text += std::string(i == 0 ? " ;\n      lv2:scalePoint " : ",\n        ") +
                "[ rdfs:label " + quoted(description.names[i]) + " ; rdf:value " +
                number(static_cast<float>(i)) + " ]";
    }
    return text + " ;\n      rdfs:comment " + quoted(description.comment) + " ]";
}

std::string groups() {
    std::string text = uriOf("input") +
                       "\n    a pg:MonoGroup, pg:InputGroup ;\n    lv2:symbol \"input\" ; "
                       "lv2:name \"Voice input\" .\n\n" +
                       uriOf("sideChain") +
                       "\n    a pg:MonoGroup, pg:InputGroup ;\n    lv2:symbol \"sideChain\" ; "
                       "lv2:name \"Carrier input\" ;\n    pg:sideChainOf " +
                       uriOf("input") + " .\n\n" + uriOf("output") +
                       "\n    a pg:StereoGroup, pg:OutputGroup ;\n    lv2:symbol \"output\" ; "
                       "lv2:name \"Output\" ;\n    pg:source " +
                       uriOf("input") + " .\n\n";
    for (const auto group : {ParameterGroup::voice, ParameterGroup::carrier, ParameterGroup::motion,
                             ParameterGroup::bands}) {
        const auto [symbol, name] = nameOf(group);
        text += uriOf(symbol) + "\n    a pg:InputGroup ;\n    lv2:symbol " + quoted(symbol) +
                " ; lv2:name " + quoted(name) + " .\n\n";
    }
    return text;
}

std::string windowTurtle() {
    return angled(WindowState::uri) + "\n    a lv2:ExtensionData .\n\n" + angled(windowUri) + R"(
    a ui:X11UI ;
    lv2:requiredFeature ui:idleInterface ;
    lv2:optionalFeature ui:parent, ui:resize, ui:touch, ui:noUserResize,
        <http://lv2plug.in/ns/ext/instance-access>, <http://lv2plug.in/ns/ext/data-access> ;
    lv2:extensionData ui:idleInterface .
)";
}

} // namespace

std::string manifestTurtle() {
    return std::string(prefixes) + angled(pluginUri) +
           "\n    a lv2:Plugin ;\n    lv2:binary <larkvox.so> ;\n    rdfs:seeAlso <larkvox.ttl> "
           ".\n\n" +
           angled(windowUri) +
           "\n    a ui:X11UI ;\n    ui:binary <larkvox_ui.so> ;\n    rdfs:seeAlso <larkvox.ttl> "
           ".\n";
}

std::string pluginTurtle() {
    std::string text = std::string(prefixes) + angled(pluginUri) + R"(
    a lv2:Plugin, lv2:SpectralPlugin, doap:Project ;
    doap:name "Larkvox" ;
    doap:shortdesc "A vocoder: gives the voice's bands to a carrier" ;
    doap:maintainer [ foaf:name "Fennick" ; foaf:homepage <https://www.fennick.example/> ] ;
    lv2:project )" + angled(pluginUri) +
                       R"( ;
    lv2:minorVersion 2 ; lv2:microVersion 0 ;
    lv2:optionalFeature lv2:hardRTCapable, urid:map ;
    lv2:extensionData state:interface, )" +
                       angled(WindowState::uri) + R"( ;
    ui:ui )" + angled(windowUri) +
                       R"( ;
    pg:mainInput )" + uriOf("input") +
                       R"( ;
    pg:mainOutput )" + uriOf("output") +
                       " ;\n    lv2:port\n";
    std::vector<std::string> ports{
        audioPort(modulator, "modulator", "Modulator",
                  "pg:group " + uriOf("input") + " ; lv2:designation pg:center"),
        audioPort(carrier, "carrier", "Carrier",
                  "pg:group " + uriOf("sideChain") +
                      " ; lv2:designation pg:center ;\n      lv2:portProperty lv2:isSideChain, "
                      "lv2:connectionOptional"),
        audioPort(left, "left", "Left",
                  "pg:group " + uriOf("output") + " ; lv2:designation pg:left"),
        audioPort(right, "right", "Right",
                  "pg:group " + uriOf("output") + " ; lv2:designation pg:right")};
    for (std::size_t address = 1; address < vocoderParameterCount; ++address) {
        ports.push_back(controlPort(address));
    }
    for (std::size_t i = 0; i < ports.size(); ++i) {
        text += ports[i] + (i + 1 < ports.size() ? " ,\n" : " .\n\n");
    }
    return text + groups() + windowTurtle();
}

} // namespace larkvox
