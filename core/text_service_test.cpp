#include "core/text_service.hpp"

#include <gtest/gtest.h>

namespace core {
namespace {

TEST(TextService, FallsBackToPlainText) {
    const TextService& service = TextService::current();
    EXPECT_EQ(service.lowercase("SAW [Z] \xC3\x84"), "saw [z] \xC3\x84");
    EXPECT_EQ(service.localizedWholeNumber(2.5), "2");
    EXPECT_EQ(service.localizedWholeNumber(-0.4), "-0");
    EXPECT_EQ(service.localizedWholeNumber(1234567.0), "1234567");
}

TEST(TextService, GivesWayToTheInstalledService) {
    class Loud final : public TextService {
      public:
        [[nodiscard]] std::string lowercase(std::string_view) const override { return "loud"; }
    };
    const Loud loud;
    TextService::install(&loud);
    EXPECT_EQ(TextService::current().lowercase("X"), "loud");
    EXPECT_EQ(TextService::current().localizedWholeNumber(3.2), "3");
    TextService::install(nullptr);
    EXPECT_EQ(TextService::current().lowercase("X"), "x");
}

} // namespace
} // namespace core
