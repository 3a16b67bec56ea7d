#include "tables/sqrtf4.h"

namespace zelk::tables {

const Sqrtf4 sqrtf4 = {
    .s_fHalf = splat32(0x3F000000),
    .s_fThree = splat32(0x40400000),
    .s_dwOne = splat32(0x3F800000),
    .s_dwMinNorm = mask32(0x80800000),
    .s_dwNormBound = mask32(0xFEFFFFFF),
    .sign_exponent = mask32(0xFF800000),
    .infinity = splat32(0x7F800000),
};

} // namespace zelk::tables
