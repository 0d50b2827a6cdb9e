// Whatever comes to knobs and buttons, in any order, no touch stays open.

#include "fernhorn/testing/disorder.hpp"

#include <gtest/gtest.h>

namespace fernhorn {
namespace {

/// A million with LARKVOX_LONG_TESTS set.
int sequences() {
    return qEnvironmentVariableIsSet("LARKVOX_LONG_TESTS") ? 1'000'000 : 3'000;
}

TEST(Sequences, NeverLeaveATouchOpen) {
    for (const Of kind : {Of::knobs, Of::buttons}) {
        Disorder disorder(kind, 20240613);
        const int count = sequences();
        for (int i = 0; i < count; ++i) {
            ASSERT_TRUE(disorder.run())
                << (kind == Of::knobs ? "knobs, " : "buttons, ") << "sequence " << i;
            if (i % 256 == 0) {
                QCoreApplication::processEvents(); // what has gathered about the window
            }
        }
        EXPECT_GT(disorder.opened(), count / 2); // and they do open some
    }
}

} // namespace
} // namespace fernhorn
