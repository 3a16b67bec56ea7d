#include "tables/tanhf4.h"

namespace zelk::tables {

const Tanhf4 tanhf4 = {
    .s_dwAbsMask = mask32(0x7FFFFFFF),
    .s_dwSignMask = mask32(0x80000000),
    .s_dwIndexMask = mask32(0x000000FF),
    .s_fTen = mask32(0x41200000),
    .s_dwPosInf = mask32(0x7F800000),
    .s_fRS = splat32(0x49000000),
    .s_fOne = splat32(0x3F800000),
    .s_fA0 = splat32(0x3F800000),
    .s_fA1 = splat32(0x3F800000),
    .s_fA2 = splat32(0x3F0002AB),
    .s_fA3 = splat32(0x3E2AA889),
    .s_fTh =
        {
#include "tables/tanhf4_grid.inc"
        },
};

} // namespace zelk::tables
