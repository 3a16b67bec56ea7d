#include "tables/sinh_coshf4.h"

namespace zelk::tables {

const SinhCoshf4 sinh_coshf4 = {
    .s_dwAbsMask = mask32(0x7FFFFFFF),
    .s_dwSignMask = mask32(0x80000000),
    .s_dwAbsMax = mask32(0x44300000),
    .s_dwInfinity = mask32(0x7F800000),
    .s_fMinBound = mask32(0x399D4952),
    .s_dbLog2e = splat64(0x3FF71547652B82FE),
    .s_dbRS = splat64(0x4338000000000000),
    .s_dwBias = mask64(0x00000000000003FE),
    .s_dwTwoBiases = {0x7FC0000000000000, 0x7FC0000000000000},
    .s_dbA0 = splat64(0x3FF00000002614FF),
    .s_dbA1 = splat64(0x3FE62E430C7E922C),
    .s_dbA2 = splat64(0x3FCEBFBDADCB0CA8),
    .s_dbA3 = splat64(0x3FAC6AED4B951D00),
    .s_dbA4 = splat64(0x3F83B2DBBC0F45AE),
    .s_dbA5 = splat64(0x3F55F456A8A729EC),
    .s_dbA6 = splat64(0x3F241D33371366F6),
};

} // namespace zelk::tables
