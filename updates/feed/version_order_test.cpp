#include "updates/feed/version_order.hpp"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace updates {
namespace {

// Each row is one version in different words; rows rise.
const std::vector<std::vector<std::string>> rising = {
    {"alpha"},
    {"beta"},
    {"0", "", "0.0", ".", "00", "+build"},
    {"0.0.1", "0.0.1.0"},
    {"1.0-1", "1-1"},
    {"1.0-1.a"},
    {"1.0-2"},
    {"1.0a", "1-A"},
    {"1.0-alpha", "1.0alpha", "1.0.0.ALPHA"},
    {"1.0-alpha.1", "1.0alpha1", "1alpha01"},
    {"1.0-alpha.beta"},
    {"1.0b2"},
    {"1.0b11", "1.0.b11"},
    {"1.0-rc.1", "1.0rc1", "1.0-rc.1+5"},
    {"1.0-rc.1.0"},
    {"1.0", "1", "1.0.0", "v1.0", "V1", "1.0+2", "01.00", "1.."},
    {"1.0.1", "1.0.01"},
    {"1.2b3"},
    {"1.2"},
    {"1.9"},
    {"1.10"},
    {"1.10.1"},
    {"2"},
    {"18446744073709551615"},
    {"18446744073709551616"},
    {"18446744073709551616.1"},
    {std::string(100'000, '9')},
    {"1" + std::string(100'000, '0'), "0001" + std::string(100'000, '0')},
};

TEST(VersionOrder, IsTheSameFromEverySide) {
    for (std::size_t i = 0; i < rising.size(); ++i) {
        for (std::size_t j = 0; j < rising.size(); ++j) {
            for (const std::string& left : rising[i]) {
                for (const std::string& right : rising[j]) {
                    EXPECT_EQ(compareVersions(left, right), i <=> j)
                        << left.substr(0, 40) << " and " << right.substr(0, 40);
                }
            }
        }
    }
}

TEST(VersionOrder, KnowsWhatCanBeAVersion) {
    for (const std::string good : {"0", "1.2.3", "1.2b3", "1.0-rc.1+build_5", "20250304"}) {
        EXPECT_TRUE(isVersion(good)) << good;
    }
    for (const std::string bad : {"", "v1", "latest", ".1", "-1", "1..2", "../1", "1/2", "1 2",
                                  "1\n", "1%32", "1\xc3\xa9"}) {
        EXPECT_FALSE(isVersion(bad)) << bad;
    }
    EXPECT_TRUE(isVersion(std::string(64, '1')));
    EXPECT_FALSE(isVersion(std::string(65, '1')));
    EXPECT_FALSE(isVersion(std::string("1\0", 2)));
}

} // namespace
} // namespace updates
