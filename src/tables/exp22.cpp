#include "tables/exp22.h"

namespace zelk::tables {

const Exp22 exp22 = {
    .AbsMask = int4{0, 0x7FFFFFFF, 0, 0x7FFFFFFF},
    .Trash = splat64(0x408FF00000000000),
    .Shifter = splat64(0x42C8000000000000),
    .Bias = mask64(0x000000000001FF80),
    .IntMask = mask64(0x000000000003FF80),
    .P0 = splat64(0x3FF0000000000000),
    .P1 = splat64(0x3FE62E42FEFA3685),
    .P2 = splat64(0x3FCEBFBDFF82D099),
    .P3 = splat64(0x3FAC6B09B179999B),
    .P4 = splat64(0x3F83B2AB0AC701B3),
    .Table =
        {
#include "tables/exp22_powers.inc"
        },
};

} // namespace zelk::tables
