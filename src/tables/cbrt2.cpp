#include "tables/cbrt2.h"

namespace zelk::tables {

const Cbrt2 cbrt2 = {
    .abs_mask = mask64(0x7FFFFFFFFFFFFFFF),
    .sign_mask = mask64(0x8000000000000000),
    .mantissa_mask = mask64(0x000FFFFFFFFFFFFF),
    .exponent_mask = mask64(0x7FF0000000000000),
    .infinity = mask64(0x7FF0000000000000),
    .one_high = mask32(0x00100000),
    .smallest_normal = mask32(0x00100000),
    .largest_high = mask32(0x7FEFFFFF),
    .s_dwDiv3Mul = mask32(0xAAAB0000),
    .exponent_mask_high = mask32(0x7FF00000),
    .s_dwCbrtIndexMask = mask32(0x00030000),
    .s_dwInvBias = mask32(0x55300000),
    .high_mask = mask64(0xFFFFFFFF00000000),
    .s_dwDenoScale = splat64(0x7FB0000000000000),
    .one = splat64(0x3FF0000000000000),
    .s_dbFour = splat64(0x4010000000000000),
    .s_dbNegOne = splat64(0xBFF0000000000000),
    .s_dbCbrt = {0x3FE0EEA9C37E497E, 0x3FDAE0D94CBC98B9, 0x3FD5555555555555, //
                 0x5520EEA9C37E497E, 0x551AE0D94CBC98B9, 0x5515555555555555},
};

const CbrtQuadratic s_dbA[128] = {
#include "tables/cbrt2_quadratic.inc"
};

} // namespace zelk::tables
