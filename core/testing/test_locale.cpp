// Linked into test programs that also run in a locale with a decimal comma: takes the locale from
// the environment, as the toolkit does at start-up, and fails where it is not what was asked for.
#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

class LocaleFromEnvironment final : public testing::Environment {
  public:
    void SetUp() override {
        std::setlocale(LC_ALL, "");                           // NOLINT: one thread so far
        if (std::getenv("LARKVOX_EXPECT_COMMA") != nullptr) { // NOLINT: likewise
            std::array<char, 8> text{};
            std::snprintf(text.data(), text.size(), "%.1f", 0.5);
            ASSERT_STREQ(text.data(), "0,5") << "the locale has not been generated";
        }
    }
};

[[maybe_unused]] const auto* const environment =
    testing::AddGlobalTestEnvironment(new LocaleFromEnvironment);

} // namespace
