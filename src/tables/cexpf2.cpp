#include "tables/cexpf2.h"

namespace zelk::tables {

const Cexpf2 cexpf2 = {
    .BndExpSin = int4{0x42AEAC50, 0x461C4000, 0x42AEAC50, 0x461C4000},
    .AbsMask = mask32(0x7FFFFFFF),
    .flSignY = int4{0, INT32_MIN, 0, INT32_MIN},
    .s_dw128DivLog2 = splat32(0x4338AA3B),
    .s_fRS = splat32(0x4B300000),
    .s_dwLog2Div128_Hi = splat32(0x3BB18000),
    .s_dwLog2Div128_Lo = splat32(0xB5DE8083),
    .IndexMask = mask32(0x7F),
    .s_dwBiasf = mask32(128 << 23),
    .ExponentUnit = mask32(1 << 23),
    .s_fA2 = splat32(0x3F000000),
    .MMSINVPI = splat32(0x3F22F983),
    .MMSRSHIFT = splat32(0x4B400000),
    .MMSPI1 = splat32(0x3FC90000),
    .MMSPI2 = splat32(0x39FDA000),
    .MMSPI3 = splat32(0x33A22000),
    .MMSPI4 = splat32(0x2C34611A),
    .RealQuarter = int4{1, 0, 1, 0},
    .MMIPARMASK = mask32(1),
    .MMITWOMASK = mask32(2),
    .MMSA1 = splat32(0xBE2AAAA3),
    .MMSA2 = splat32(0x3C08839D),
    .MMSA3 = splat32(0xB94CA1F0),
    .MMSB0 = splat32(0x3F800000),
    .MMSB1 = splat32(0xBF000000),
    .MMSB2 = splat32(0x3D2AAAA5),
    .MMSB3 = splat32(0xBAB6061A),
    .MMSB4 = splat32(0x37CCF5CE),
};

alignas(16) const std::uint32_t exp2f_table[128][2] = {
#include "tables/cexpf2_powers.inc"
};

} // namespace zelk::tables
