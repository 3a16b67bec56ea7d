#include "tables/exp2.h"

namespace zelk::tables {

const Exp2 exp2 = {
    .dbB1 = splat64(0x4086000000000000),
    .dbB2 = splat64(0x4088000000000000),
    .dbInf = splat64(0x7FF0000000000000),
    .iAbsMask = mask64(0x7FFFFFFFFFFFFFFF),
    .s_dwInvLn = splat64(0x40571547652B82FE),
    .s_dwNegRS = splat64(0xC338000000000000),
    .s_dwLnHi = splat64(0x3F862E42FEE00000),
    .s_dwLnLo = splat64(0x3D8A39EF35793C76),
    .s_dwBias = ulong2{0xFFC0, 0xFFC0},
    .s_dwOne = splat64(0x3FF0000000000000),
    .s_dwA2 = splat64(0x3FDFFFFFFFFF62DC),
    .s_dwA3 = splat64(0x3FC555555555E58E),
    .s_dwA4 = splat64(0x3FA555594C77FF02),
    .s_dwA5 = splat64(0x3F81111001A21E3A),
    .s_dwExp2 =
        {
#include "tables/exp2_fractions.inc"
        },
    .positive =
        {
            .adjustment = long2{-200, -200},
            .compensation = splat64(0x4C70000000000000), // 2^200
            .saturation = splat64(0x7FE0000000000000),   // 2^1023
            .at_infinity = splat64(0x7FF0000000000000),
        },
    .negative =
        {
            .adjustment = long2{200, 200},
            .compensation = splat64(0x3370000000000000), // 2^-200
            .saturation = splat64(0x0010000000000000),   // 2^-1022
            .at_infinity = splat64(0x0000000000000000),
        },
};

} // namespace zelk::tables
