#include "tables/logf4.h"

namespace zelk::tables {

const Logf4 logf4 = {
    .flMantissaMask = mask32(0x007FFFFF),
    .s_dwSqrt2Addition = mask32(0x004AFB10),
    .s_dwSqrt2Mask = mask32(0x00800000),
    .s_fOne = splat32(0x3F800000),
    .s_dwExpBias = mask32(0x0000007F),
    .s_dwPosInf = mask32(0x7F800000),
    .s_dwNegInf = mask32(0xFF800000),
    .s_dwAbsMask = mask32(0x7FFFFFFF),
    .s_dwSpecial1 = (uint4)mask32(0x807FFFFF),
    .s_dwSpecial2 = mask32(0x007FFFFF),
    .s_fLn2 = splat32(0x3F317218),
    .s_fInvLn2 = splat32(0x3FB8AA3B),
    .s_fInvLn10 = splat32(0x3EDE5BD9),
    .s_fLg2 = splat32(0x3E9A209B),
};

const Logf4Base logf4_e = {
    .s_fB0 = splat32(0x3F2AAB10),
    .s_fB1 = splat32(0x3ECC6FFA),
    .s_fB2 = splat32(0x3E9E361E),
    .s_fDenoAdd = splat32(0xC2AEAC50),
};

const Logf4Base logf4_2 = {
    .s_fB0 = splat32(0x3F7638E2),
    .s_fB1 = splat32(0x3F13786D),
    .s_fB2 = splat32(0x3EE44035),
    .s_fDenoAdd = splat32(0xC2FC0000),
};

const Logf4Base logf4_10 = {
    .s_fB0 = splat32(0x3E943D93),
    .s_fB1 = splat32(0x3E319274),
    .s_fB2 = splat32(0x3E096BB1),
    .s_fDenoAdd = splat32(0xC217B818),
};

} // namespace zelk::tables
