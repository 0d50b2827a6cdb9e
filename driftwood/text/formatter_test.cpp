#include "driftwood/text/formatter.hpp"

#include "core/text_service.hpp"
#include "platform/ui/locale_services.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <tuple>

namespace driftwood {
namespace {

using Text = std::optional<std::string>;

class Formatters : public ::testing::Test {
  protected:
    Formatters() { platform::installLocaleServices(); }
    ~Formatters() override { core::TextService::install(nullptr); }
};

constexpr const char* nameError =
    "Constant names must only contain A-Z, a-z, 0-9 and the characters _ and $";

TEST_F(Formatters, ShowConstantNamesWithTheirPrefixAndEditThemWithout) {
    struct Case {
        const char* value;
        const char* shown;
        const char* edited;
        const char* prefix = "$";
    };
    for (const Case& c : std::initializer_list<Case>{
             {"abc", "$abc", "abc"},
             {"$abc", "$abc", "abc"},
             {"", "$", ""},
             {"a$b", "$a$b", "b"},
             {"É1", "eÉ1", "1", "e"}, // whatever case and marks
             {"e\u0301\u03021", "e\u0301\u03021", "1", "e"},
             {"\uFB01n", "f\uFB01n", "n", "f"}, // a ligature is found as a whole
             {"abc", "abc", "abc", ""}}) {
        ConstantNameFormatter formatter;
        formatter.setRequiredPrefix(c.prefix);
        EXPECT_EQ(formatter.stringForObjectValue(FieldValue(c.value)), c.shown) << c.value;
        EXPECT_EQ(formatter.editingStringForObjectValue(FieldValue(c.value)), c.edited) << c.value;
    }
    EXPECT_EQ(ConstantNameFormatter().stringForObjectValue(FieldValue(1.0)), std::nullopt);
    EXPECT_EQ(ConstantNameFormatter().editingStringForObjectValue(FieldValue()), std::nullopt);
}

TEST_F(Formatters, AcceptConstantNames) {
    const ConstantNameFormatter formatter;
    for (const auto& [text, isAllowed] : std::initializer_list<std::pair<const char*, bool>>{
             {"my-name.v2", true},
             {"", true},
             {"größe_$", true},
             {"e\u0301", true},      // a mark
             {"\u0661\u5927", true}, // a digit and a letter of other scripts
             {"\U00010400", true},   // beyond the first plane
             {"my name", false},
             {"a+b", false},
             {"\U0001F600", false}, // an emoji
             {"a\u00A0b", false},
             {"a\xFF", false},       // no text at all
             {"\xC0\xB1", false}}) { // a "1" made too long
        const FormatterResult whole = formatter.objectValueForString(text);
        const PartialFormatterResult part = formatter.isPartialStringValid(text);
        EXPECT_EQ(whole.isSuccess(), isAllowed) << text;
        EXPECT_EQ(part.isValid, isAllowed) << text;
        EXPECT_EQ(whole.errorDescription, isAllowed ? "" : nameError) << text;
        EXPECT_EQ(part.errorDescription, whole.errorDescription) << text;
        if (isAllowed) {
            EXPECT_EQ(std::get<std::string>(*whole.objectValue), text);
            EXPECT_EQ(part.newEditingString, text);
        }
    }
}

TEST_F(Formatters, LetExpressionsThroughAndWriteNumbersWithTheirSuffix) {
    ExpressionFormatter formatter;
    EXPECT_TRUE(formatter.isLenient());
    for (const char* const text : {"x*2", " 3", "", "3 dB", "0x", "- 3", "3e", "nan)"}) {
        EXPECT_EQ(formatter.stringForObjectValue(FieldValue(text)), text);
        EXPECT_EQ(formatter.editingStringForObjectValue(FieldValue(text)), text);
        EXPECT_EQ(formatter.objectValueForString(text).objectValue, FieldValue(std::string(text)));
    }
    formatter.setPositiveSuffix(" dB");
    EXPECT_EQ(formatter.stringForObjectValue(FieldValue("x*2")), "x*2");
    struct Case {
        FieldValue value;
        Text shown;
        Text edited;
    };
    for (const Case& c : std::initializer_list<Case>{{3.0, "3 dB", "3"},
                                                     {"3", "3 dB", "3"},
                                                     {-0.00001, "0 dB", "0"},
                                                     {1234.5678, "1234.568 dB", "1234.568"},
                                                     {1e300 * 1e300, std::nullopt, std::nullopt},
                                                     {FieldValue(), std::nullopt, std::nullopt}}) {
        EXPECT_EQ(formatter.stringForObjectValue(c.value), c.shown);
        EXPECT_EQ(formatter.editingStringForObjectValue(c.value), c.edited);
    }
    formatter.setFormatterBehavior(FormatterBehavior::behavior10_0);
    EXPECT_EQ(formatter.stringForObjectValue(FieldValue(3.0)), "3");
    EXPECT_EQ(formatter.objectValueForString("-0x1.8p1").objectValue, FieldValue(-3.0));
    EXPECT_FALSE(formatter.objectValueForString("inf").isSuccess());
    EXPECT_EQ(formatter.objectValueForString("1e999").errorDescription,
              "This is not a finite number");
    NumberFormatter strict;
    EXPECT_FALSE(strict.objectValueForString(" 3 ").isSuccess());
    strict.setLenient(true);
    EXPECT_EQ(strict.objectValueForString(" 3 ").objectValue, FieldValue(3.0));
}

/// The rule as it is stated, by C itself.
bool isNumberInC(const std::string& text) {
    if (text.empty() || std::string_view("\0\t\n\v\f\r ", 7).find(text[0]) != std::string::npos) {
        return false;
    }
    char* end = nullptr;
    static_cast<void>(std::strtod(text.c_str(), &end));
    return end == text.c_str() + text.size();
}

TEST_F(Formatters, NeverThrowAndTakeForANumberWhatCDoes) {
    // Mostly what numbers are made of, so that many are, or nearly.
    const std::string pieces[] = {
        "0",        "1",      "9",          "0x",   "A",    "e",   "E",
        "p",        "+",      "-",          ".",    "inf",  "nan", "INFINITY",
        "nan(a1_)", "(",      ")",          " ",    "\t",   "$",   "_",
        "é",        "\u0301", "\U0001F600", "\xFF", "\xC3", ",",   std::string(1, '\0'),
        "400",      "5",      "d",          "x"};
    std::mt19937 random(4711); // NOLINT: the same texts on every run
    std::uniform_int_distribution<std::size_t> piece(0, std::size(pieces) - 1);
    std::uniform_int_distribution<int> length(0, 7);
    ConstantNameFormatter names;
    ExpressionFormatter expressions;
    expressions.setPositiveSuffix("e");
    int numbers = 0;
    for (int i = 0; i < 100'000; ++i) {
        std::string text;
        for (int n = length(random); n > 0; --n) {
            text += pieces[piece(random)];
        }
        ASSERT_NO_THROW({
            for (const Formatter* const formatter :
                 std::initializer_list<const Formatter*>{&names, &expressions}) {
                static_cast<void>(formatter->stringForObjectValue(FieldValue(text)));
                static_cast<void>(formatter->editingStringForObjectValue(FieldValue(text)));
                static_cast<void>(formatter->objectValueForString(text));
                static_cast<void>(formatter->isPartialStringValid(text));
            }
        });
        const bool isNumber = isNumberInC(text);
        ASSERT_EQ(parseNumber(text).has_value(), isNumber) << "“" << text << "”";
        if (isNumber) {
            ++numbers;
            const double expected = std::strtod(text.c_str(), nullptr);
            const double read = *parseNumber(text);
            ASSERT_TRUE(read == expected || (std::isnan(read) && std::isnan(expected)))
                << text << ": " << read << " for " << expected;
        }
    }
    EXPECT_GT(numbers, 4000);
}

} // namespace
} // namespace driftwood
