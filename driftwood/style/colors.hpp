#pragma once

#include "driftwood/style/asset_source.hpp"

namespace driftwood {

/// The kit's named colours; each is fetched once, when it is first used. Main thread.
struct DWColors {
    struct Background {
        static const Color& darker();
        static const Color& darkest();
        static const Color& normal();
    };
    struct Kestrel {
        static const Color& aqua();
        static const Color& blue();
        static const Color& darkPurple();
        static const Color& lightBlue();
        static const Color& orange();
        static const Color& purple();
        static const Color& red();
        static const Color& yellow();
    };
    static const Color& grey20();
    static const Color& grey30();
    static const Color& grey40();
    static const Color& grey50();
    static const Color& grey60();
    static const Color& grey70();
    static const Color& grey85();
    static const Color& grey100();
};

/// Cells and declarative views have the same kind of colour here.
using DWColorsAK = DWColors;

} // namespace driftwood
