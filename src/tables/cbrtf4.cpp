#include "tables/cbrtf4.h"

namespace zelk::tables {

const Cbrtf4 cbrtf4 = {
    .abs_mask = mask32(0x7FFFFFFF),
    .sign_mask = mask32(0x80000000),
    .mantissa_mask = mask32(0x007FFFFF),
    .exponent_mask = mask32(0x7F800000),
    .one = splat32(0x3F800000),
    .smallest_normal = mask32(0x00800000),
    .largest = mask32(0x7F7FFFFF),
    .s_dwDiv3Mul_A = mask32(0xAAAB0000),
    .s_dwDiv3Mul_L = mask32(0x55560000),
    .s_dwDiv3Add = mask32(0x2A600000),
    .s_dwCbrtIndexMask = mask32(0x00180000),
    .s_dwRemDiv3Mask = mask32(0x000C0000),
    .remainder_two = mask32(0x00040000),
    .s_fDenoScale = splat32(0x7B800000),
    .s_fDenoUnscale = splat32(0x2B800000),
    .deno_unscale_L = splat32(0x2A800000),
    .s_dwCbrt4 = splat32(0x3FCB2FF5),
    .s_dwCbrt2 = splat32(0x3FA14518),
    .s_dwC1 = splat32(0x3EAAAAAB),
    .s_dwC2 = splat32(0xBDE38E39),
    .s_dwRcpMask = mask32(0xFFFF8000),
};

const Invcbrtf4 invcbrtf4 = {
    .s_dw2xExpbOfOne = mask32(0x7F000000),
    .s_dwDenoScale = splat32(0x7E800000),
    .s_dwDenoUnscale = mask32(0x54800000),
    .s_dbA0 = splat64(0x3FFF817B7CD4F0BD),
    .s_dbA1 = splat64(0xC0036C941532CD1A),
    .s_dbA2 = splat64(0x4007428326703A1F),
    .s_dbA3 = splat64(0xC002CB018F5A568A),
    .s_dbA4 = splat64(0x3FF3DA5EA2F64337),
    .s_dbA5 = splat64(0xBFDA5C5F12B3DEB4),
    .s_dbA6 = splat64(0x3FB3FD16DF6E9480),
    .s_dbA7 = splat64(0xBF7A6EF2916AE66D),
    .s_dbCbrt2j = {0x3FF965FEA53D6E3D, 0x3FF0000000000000, 0x3FF428A2F98D728B, 0},
};

const std::uint32_t s_fCbrtTable[4] = {0x3FCB2FF5, 0x3F800000, 0x3FA14518, 0};

const float4 s_fAi[64] = {
#include "tables/cbrtf4_quadratic.inc"
};

const std::uint32_t s_dwT[256][2] = {
#include "tables/cbrtf4_reciprocal.inc"
};

} // namespace zelk::tables
