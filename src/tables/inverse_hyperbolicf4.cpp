#include "tables/inverse_hyperbolicf4.h"

namespace zelk::tables {

const InverseHyperbolicf4 inverse_hyperbolicf4 = {
    .s_dwAbsMask = mask32(0x7FFFFFFF),
    .s_dwSignMask = mask32(0x80000000),
    .s_dwPosInf = mask32(0x7F800000),
    .s_dwAcoshThreshold = mask32(0x3FC00000),
    .s_dwAsinhThreshold = mask32(0x3F800000),
    .s_dwAtanhThreshold = mask32(0x3E800000),
    .s_dwInfBoundary = mask32(0x3F7FFFFF),
    .s_dwHugeArg = mask32(0x5F0AC723),
    .s_dwBias = mask32(0x0000007F),
    .s_dwExponentMask = mask32(0x7F800000),
    .s_dwSqrt2Addition = mask32(0x004AFB10),
    .s_uOne = (uint4)mask32(0x3F800000),
    .s_fOne = splat32(0x3F800000),
    .s_fTwo = splat32(0x40000000),
    .s_dwHalf = splat32(0x3F000000),
    .s_fLn2 = splat32(0x3F317218),
    .s_fLn2Hi = splat32(0x3F310000),
    .s_fLn2Lo = splat32(0x3AE42FF0),
    .s_fA1 = splat32(0x3F2AAABD),
    .s_fA2 = splat32(0x3ECCAF68),
    .s_fA3 = splat32(0x3E98F06F),
    .s_dwAsinhTiny = mask32(0x317FFFFF),
    .s_dwAtanhTiny = mask32(0x307FFFFF),
    .s_dbLn2 = splat64(0x3FE62E42FEFA39EF),
};

const LogCubic __zelk_sp_inv_hyp_T[256] = {
#include "tables/inverse_hyperbolicf4_log.inc"
};

} // namespace zelk::tables
