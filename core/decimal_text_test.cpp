#include "core/decimal_text.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace core {
namespace {

using namespace std::string_literals;
constexpr float infinity = std::numeric_limits<float>::infinity();

TEST(DecimalText, ReadsOnlyWhatIsWhollyANumber) {
    const std::pair<std::string, float> numbers[] = {{"2.5", 2.5F},      {"1e3", 1000},
                                                     {"+7", 7},          {"-.5", -0.5F},
                                                     {"5.", 5},          {"007", 7},
                                                     {"1.e-2", 0.01F},   {"1E+2", 100},
                                                     {"1e99", infinity}, {"-1e99", -infinity},
                                                     {"1e-99", 0},       {"1e-46", 0},
                                                     {"1e-45", 1e-45F},  {"16777217", 16777216}};
    for (const auto& [text, number] : numbers) {
        EXPECT_EQ(parseDecimal(text), number) << text;
    }
    EXPECT_EQ(parseDecimal("1e99999999999999999999"), infinity);
    EXPECT_EQ(parseDecimal("0.1e-99999999999999"), 0.0F);
    EXPECT_EQ(parseDecimal("0e999999999999"), 0.0F);
    EXPECT_EQ(parseDecimal("0." + std::string(60, '0') + "1e61"), 1.0F);
    EXPECT_EQ(parseDecimal("1" + std::string(60, '0')), infinity);
    EXPECT_TRUE(std::signbit(parseDecimal("-0").value()));
    EXPECT_TRUE(std::signbit(parseDecimal("-1e-99").value()));
    for (const std::string none :
         {"",    " 5",        "5 ",  "\t5", "1,5",   "abc",     ".",      "-",    "+",
          "+-1", "--1",       "1e",  "1e+", "e5",    ".e5",     "1.2.3",  "0x10", "0x1p3",
          "inf", "-infinity", "nan", "1f",  "1e5.0", "\u00A05", "\u22125"}) {
        EXPECT_EQ(parseDecimal(none), std::nullopt) << '"' << none << '"';
    }
    for (const std::string& none : {"\0"s, "\0"s + "5", "5\0"s, "1\0"s + "5"}) {
        EXPECT_EQ(parseDecimal(none), std::nullopt) << none.size() << " characters";
    }
}

TEST(DecimalText, WritesWhatTheCLibraryWritesInTheCLocale) {
    std::mt19937 random(7); // NOLINT: the same numbers every time
    const std::string own = std::setlocale(LC_NUMERIC, nullptr);
    const auto expected = [&](double value, int places) {
        std::setlocale(LC_NUMERIC, "C");
        const int length = std::snprintf(nullptr, 0, "%0.*lf", places, value);
        std::string text(static_cast<std::size_t>(length) + 1, '\0');
        std::snprintf(text.data(), text.size(), "%0.*lf", places, value);
        text.pop_back();
        std::setlocale(LC_NUMERIC, own.c_str());
        return text;
    };
    for (const double value :
         {0.0, -0.0, 0.5, 1.5, 2.5, -0.4, 0.125, 0.375, 1e22, -3.4e38, 1e-45}) {
        for (const int places : {0, 1, 2, 17, 150}) {
            EXPECT_EQ(fixedText(value, places), expected(value, places));
        }
    }
    for (int i = 0; i < 20'000; ++i) {
        const auto value =
            static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
        const int places = static_cast<int>(random() % 8);
        ASSERT_EQ(fixedText(value, places), expected(value, places)) << std::hexfloat << value;
    }
    EXPECT_EQ(fixedText(1.5, -3), "2");
    EXPECT_EQ(fixedText(1.5, std::numeric_limits<std::int64_t>::max()).size(), 2U + 1100U);
    EXPECT_EQ(fixedText(-std::numeric_limits<double>::max(), maximumDecimalPlaces).size(), 1411U);
}

TEST(DecimalText, WritesTheShortestFaithfulText) {
    EXPECT_EQ(shortestText(7.0F), "7.0");
    EXPECT_EQ(shortestText(-0.1F), "-0.1");
    EXPECT_EQ(parseDecimal(shortestText(1e16F)), 1e16F);
    EXPECT_EQ(shortestText(infinity), "inf");
}

} // namespace
} // namespace core
