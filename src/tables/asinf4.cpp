#include "tables/asinf4.h"

namespace zelk::tables {

const Asinf4 asinf4 = {
    .s_dwAbsMask = mask32(0x7FFFFFFF),
    .s_dwSignMask = mask32(0x80000000),
    .s_fHalf = splat32(0x3F000000),
    .s_fOne = splat32(0x3F800000),
    .s_dwOtherFactor = mask32(0xFF800000),
    .s_fPi2 = splat32(0x3FC90FDB),
    .s_fPi = splat32(0x40490FDB),
    .s_fA0 = splat32(0x3F800000),
    .s_fA1 = splat32(0x3E2AAAF8),
    .s_fA2 = splat32(0x3D997DCC),
    .s_fA3 = splat32(0x3D3A73D8),
    .s_fA4 = splat32(0x3CC48F19),
    .s_fA5 = splat32(0x3D2DBDCF),
};

} // namespace zelk::tables
