#include "plugin/dsp/waves.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace larkvox {
namespace {

TEST(WavesTest, StayOnTheScreenWhateverTheirParametersAre) {
    for (const double amount : {0.0, 0.3, 0.5, 1.0}) {
        for (int kind = 0; kind < 4; ++kind) {
            const Motion motion{static_cast<MotionShape>(kind), 1, amount - 0.5, amount};
            const Carrier carrier{static_cast<Source>(kind), amount, 50, 1 + 2 * kind};
            for (double turns = -1; turns < 8; turns += 0.01) {
                ASSERT_LE(std::abs(motion.at(turns)), 1) << kind << " at " << turns;
                ASSERT_LE(std::abs(carrier.at(turns)), 1) << kind << " at " << turns;
            }
        }
    }
    const Motion even{MotionShape::ramp, 1, 0, 0.5};
    EXPECT_NEAR(even.at(0.25), even.at(1.25), 1e-9);
    const Motion swung{MotionShape::ramp, 1, 0, 0.6};
    EXPECT_NEAR(swung.at(0.6), 0, 1e-9) << "the first turn takes 1.2 of 2";
}

} // namespace
} // namespace larkvox
