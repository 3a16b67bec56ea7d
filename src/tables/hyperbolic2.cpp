#include "tables/hyperbolic2.h"

namespace zelk::tables {

const Hyperbolic2 hyperbolic2 = {
    .s_dwAbsMsk = mask64(0x7FFFFFFFFFFFFFFF),
    .s_dwSignMask = mask64(0x8000000000000000),
    .s_dwExpbMask = mask64(0x7FF0000000000000),
    .s_dwLastOrdinary = mask64(0x408622FFFFFFFFFF),
    .s_dwLastFiniteHigh = mask32(0x408633CE),
    .s_dwLastIndex = mask32(1022 * 64),
    .s_dwIndexMask = mask32(63),
    .s_dwExpbOvfBoundHi = mask64(0x40862336F49C3C50),
    .s_dwPosInf = mask64(0x7FF0000000000000),
    .s_dwOne = splat64(0x3FF0000000000000),
    .s_dwInvLn = splat64(0x40571547652B82FE),
    .s_dwRS = splat64(0x4338000000000000),
    .s_dwLnHi = splat64(0x3F862E42FEF00000),
    .s_dwLnLo = splat64(0x3D7473DE6AF278ED),
    .s_dwBias = mask64(0x000000000000FF80),
    .s_dwA2 = splat64(0x3FDFFFFFFFFFD97C),
    .s_dwA3 = splat64(0x3FC55555555542A1),
    .s_dwA4 = splat64(0x3FA555574BC3A1BE),
    .s_dwA5 = splat64(0x3F81111276409C2C),
    .s_dwExp2Max = splat64(0x7FE0000000000000),
    .s_dwTwo = splat64(0x4000000000000000),
    .s_dwExp2 =
        {
#include "tables/hyperbolic2_exp2.inc"
        },
};

} // namespace zelk::tables
