#include "fernhorn/format/default_label_formatter.hpp"
#include "fernhorn/format/label_display_options.hpp"
#include "fernhorn/format/label_name_formatter.hpp"
#include "fernhorn/model/audio_parameter.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace fernhorn {
namespace {

using platform::AudioUnitParameterUnit;

std::shared_ptr<AudioParameter>
parameterWith(AudioUnitParameterUnit units, std::optional<std::vector<std::string>> strings = {}) {
    return std::make_shared<AudioParameter>(1, "a", "A", units, ValueRange{0, 1}, 0.0F,
                                            ValueIncrement::linear(), std::move(strings));
}

TEST(DefaultLabelFormatter, WritesAsThePrintfFamilyDoes) {
    constexpr auto cents = AudioUnitParameterUnit::absoluteCents;
    constexpr auto generic = AudioUnitParameterUnit::generic;
    struct Case {
        AudioUnitParameterUnit units;
        std::int64_t places;
        float value;
        std::string text;
    };
    const Case cases[] = {
        {generic, 2, 0.5F, "0.50"},
        {cents, 1, 1200, "12.0"},
        {generic, 1, 0.25F, "0.2"},
        {generic, -2, 1.5F, "2"},
        // 5,000,000.5 times 0.01 is rounded to 32 bits before it is written.
        {cents, 6, 5'000'000.5F, "50000.003906"},
        {generic, 3, std::numeric_limits<float>::infinity(), "inf"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(DefaultLabelFormatter(*parameterWith(one.units), one.places).format(one.value),
                  one.text);
    }
}

TEST(DefaultLabelFormatter, ReadsWhatWasTypedWithoutItsFactor) {
    const DefaultLabelFormatter formatter(*parameterWith(AudioUnitParameterUnit::absoluteCents), 1);
    EXPECT_EQ(formatter.parse("1e3"), 1000.0F);
    EXPECT_EQ(formatter.parse(formatter.format(1200)), 12.0F);
    for (const auto* const text : {"12 ", " 12", "1,5", "", "twelve"}) {
        EXPECT_EQ(formatter.parse(text), std::nullopt) << text;
    }
}

TEST(LabelNameFormatter, FindsNamesAndStopsWithoutOne) {
    const LabelNameFormatter formatter(
        *parameterWith(AudioUnitParameterUnit::indexed, {{"Sine", "Saw", "SAW"}}));
    EXPECT_EQ(formatter.format(0.49F), "Sine");
    EXPECT_EQ(formatter.format(0.5F), "Saw");
    EXPECT_EQ(formatter.format(-0.49F), "Sine");
    EXPECT_EQ(formatter.parse("SAW"), 1.0F) << "the first that is equal";
    EXPECT_EQ(formatter.parse("Square"), std::nullopt);
    EXPECT_EQ(formatter.parse(" Saw"), std::nullopt);
    EXPECT_DEATH((void)formatter.format(7), "Unable to format value 7\\.0, no value string found");
    for (const float none : {2.5F, -0.5F, 1e30F, std::numeric_limits<float>::infinity(),
                             std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_DEATH((void)formatter.format(none), "Unable to format value") << none;
    }

    const LabelNameFormatter nameless(*parameterWith(AudioUnitParameterUnit::indexed));
    EXPECT_EQ(nameless.parse(""), std::nullopt);
    EXPECT_DEATH((void)nameless.format(0), "Unable to format value 0\\.0, no value string found");
}

} // namespace
} // namespace fernhorn
