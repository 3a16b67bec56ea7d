#include "tables/sincosf4.h"

namespace zelk::tables {

const Sincosf4 sincosf4 = {
    .MMIABSMASK = mask32(0x7FFFFFFF),
    .MMISIGNMASK = mask32(0x80000000),
    .MMIHUGE = mask32(0x461C4000),
    .flTwoPow30 = mask32(0x4E800000),
    .MMIPARMASK = mask32(1),
    .MMITWOMASK = mask32(2),
    .MMSINVPI = splat32(0x3F22F983),
    .MMSRSHIFT = splat32(0x4B400000),
    .MMSPI1 = splat32(0x3FC90000),
    .MMSPI2 = splat32(0x39FDA000),
    .MMSPI3 = splat32(0x33A22000),
    .MMSPI4 = splat32(0x2C34611A),
    .MMSA1 = splat32(0xBE2AAAA3),
    .MMSA2 = splat32(0x3C08839D),
    .MMSA3 = splat32(0xB94CA1F0),
    .MMSB0 = splat32(0x3F800000),
    .MMSB1 = splat32(0xBF000000),
    .MMSB2 = splat32(0x3D2AAAA5),
    .MMSB3 = splat32(0xBAB6061A),
    .MMSB4 = splat32(0x37CCF5CE),
};

const SpecTableSincosf __spec_table_sincosf = {
    .grid =
        {
#include "tables/sincosf4_grid.inc"
        },
    .pi_128 = binary64(0x3F9921FB54442D18),
    .sine_2 = binary64(0xBF1A51A6625307D3),
    .cosine_2 = binary64(0xBF33BD3CC9BE45DE),
};

} // namespace zelk::tables
