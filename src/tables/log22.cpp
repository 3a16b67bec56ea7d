#include "tables/log22.h"

namespace zelk::tables {

const Log22 log22 = {
    .Bias = mask64(0x00000000000003FF),
    .Shifter = splat64(0x42C0000000000000),
    .P1 = splat64(0x3FF71547652B82FE),
    .P2 = splat64(0xBFE71547652B82FF),
    .P3 = splat64(0x3FDEC709DC32988B),
    .P4 = splat64(0xBFD715476521ED82),
    .P5 = splat64(0x3FD277801A1A2762),
    .P6 = splat64(0xBFCEC7316E9F33A2),
    .s_db1022 = splat64(0xC08FF00000000000),
    .Table =
        {
#include "tables/log22_rows.inc"
        },
};

} // namespace zelk::tables
