#include "plugin/settings/comparison.hpp"
#include "plugin/settings/frequency_formatter.hpp"
#include "plugin/settings/vocoder_settings.hpp"

#include "fernhorn/model/parameter_gesture.hpp"

#include <gtest/gtest.h>

namespace larkvox {
namespace {

class VocoderTest : public testing::Test {
  protected:
    core::MainQueue queue;
    std::shared_ptr<VocoderSettings> settings = VocoderSettings::make(queue);

    float shown(VocoderParameter which) const { return settings->parameter(which)->value(); }
};

TEST_F(VocoderTest, ComparingExchangesAllValues) {
    Comparison comparison(settings->parameters());
    const auto set = [](const auto& parameter, float value) {
        parameter->setValue(value, fernhorn::ParameterEditor::ui,
                            fernhorn::ParameterEditorState::change);
    };
    set(settings->parameter(VocoderParameter::tilt), 6);
    queue.drain();
    set(settings->band(3), -7);
    set(settings->parameter(VocoderParameter::mode), 2);
    queue.drain();

    comparison.swap();
    queue.drain();
    for (const auto& parameter : settings->parameters()) {
        EXPECT_EQ(parameter->value(), parameter->defaultValue()) << parameter->name();
    }
    comparison.swap();
    queue.drain();
    EXPECT_EQ(shown(VocoderParameter::tilt), 6);
    EXPECT_EQ(settings->band(3)->value(), -7);
    EXPECT_EQ(shown(VocoderParameter::mode), 2);
}

TEST(FrequencyFormatterTest, WritesWhatItReadsInBothUnits) {
    const FrequencyFormatter formatter;
    struct Case {
        float value;
        const char* text;
    };
    for (const auto& [value, text] :
         {Case{0.25F, "0.25 Hz"}, Case{20, "20.0 Hz"}, Case{640, "640 Hz"},
          Case{999.6F, "1.00 kHz"}, Case{1200, "1.20 kHz"}, Case{18000, "18.0 kHz"}}) {
        EXPECT_EQ(formatter.format(value), text);
        EXPECT_NEAR(formatter.parse(text).value_or(-1), value, value * 0.001F) << text;
    }
    EXPECT_EQ(formatter.parse("2k"), 2000.0F);
    EXPECT_EQ(formatter.parse("440"), 440.0F);
    for (const char* const text : {"", "Hz", "1 kilo", "1.2.3 Hz", "2 kk", "fast"}) {
        EXPECT_EQ(formatter.parse(text), std::nullopt) << text;
    }
}

} // namespace
} // namespace larkvox
