#include "tables/expf4.h"

namespace zelk::tables {

const Expf4A expf4_a = {
    .s_dwInvLn = splat32(0x42B8AA3B),
    .s_dwRS = splat32(0x4B400000),
    .s_dwLnHi = splat32(0x3C316000),
    .s_dwLnLo = splat32(0x3690BFBF),
    .s_dwA2 = splat32(0x3F00000A),
    .s_dwA3 = splat32(0x3E2AAABB),
    .abs_mask = mask32(0x7FFFFFFF),
    .s_dwIndexMask = mask32(0x0000003F),
    .s_dwBias = mask32(0x00001FC0),
    .s_dwExpbMask = mask32(0x7F800000),
    .s_dwSpecBound = mask32(0x42AEAC4F),
    .s_dwFirstOvf = mask32(0x42B17218),
    .s_dwFirstZero = mask32(0xC2CFF1B5),
    .s_dwPosInf = mask32(0x7F800000),
    .s_dwNegInf = mask32(0xFF800000),
    .s_dwBias4Ovf = mask32(0x00001EC0),
    .s_dwCorr4Ovf = splat32(0x41800000),
    .s_dwBias4Unf = mask32(2 * 0x00001FC0),
    .s_dwLeastExpb = mask32(0x00800000),
    .s_dwOne = splat32(0x3F800000),
    .s_dwExp2 =
        {
#include "tables/expf4_split.inc"
        },
};

const Expf4L expf4_l = {
    .s_dwInvLn = splat32(0x42B8AA3B),
    .s_dwNegRS = splat32(0xCB400000),
    .s_dwLnHi = splat32(0x3C316000),
    .s_dwLnLo = splat32(0x3690BFBF),
    .flTwo = splat32(0x40000000),
    .flOne = splat32(0x3F800000),
    .flAbsMask = mask32(0x7FFFFFFF),
    .flBound1 = mask32(0x42AD0000),
    .flBound2 = mask32(0x42D20000),
    .flInf = mask32(0x7F800000),
    .s_dwIndexMask = mask32(0x0000003F),
    .s_dwBias = mask32(0x00001F80),
    .factor = {splat32(0x58800000), splat32(0x26800000)},
    .adjustment = {mask32(static_cast<std::uint32_t>(-50)), mask32(50)},
    .out_of_range_seed = {mask32(0x7F000000), mask32(0x00800000)},
    .infinity_seed = {mask32(0x7F800000), mask32(0)},
    .s_dwExp2_Table =
        {
#include "tables/expf4_mantissa.inc"
        },
};

} // namespace zelk::tables
