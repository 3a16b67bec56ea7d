#include "tables/sin_cosf4.h"

namespace zelk::tables {

const SinCosf4 sin_cosf4 = {
    .MMIABSMASK = mask32(0x7FFFFFFF),
    .MMIHUGE = mask32(0x461C4000),
    .flTwoPow30 = mask32(0x4E800000),
    .sign_mask = mask32(0x80000000),
    .MMSINVPI = splat32(0x3EA2F983),
    .MMSPIo2 = splat32(0x3FC90FDB),
    .MMS05 = splat32(0x3F000000),
    .MMSPI1 = splat32(0x40490000),
    .MMSPI2 = splat32(0x3A7DA000),
    .MMSPI3 = splat32(0x34222000),
    .MMSPI4 = splat32(0x2CB4611A),
    .MMSA3 = splat32(0xBE2AAAA5),
    .MMSA5 = splat32(0x3C088773),
    .MMSA7 = splat32(0xB94FBAF1),
    .MMSA9 = splat32(0x362F0519),
    .dbInvPio2 = splat64(0x3FE45F306DC9C883),
    .PI02C = {splat64(0x3FF921FA00000000), splat64(0x3EB5444300000000), splat64(0xBD473DCA00000000),
              splat64(0xBC03B39A00000000), splat64(0x3A945C06E0E68948)},
    .dbRS = splat64(0x4338000000000000),
    .dbiOne = mask32(1),
    .MSK_LOW_BIT = mask32(0xFFFFFFFE),
};

const SpecTablef __spec_table_sinf = {
    .grid =
        {
#include "tables/sinf4_grid.inc"
        },
    .reduction =
        {
#include "tables/sin_cosf4_reduction.inc"
        },
};

const SpecTablef __spec_table_cosf = {
    .grid =
        {
#include "tables/cosf4_grid.inc"
        },
    .reduction =
        {
#include "tables/sin_cosf4_reduction.inc"
        },
};

const SpecConstantsf spec_constantsf = {
    .C1 = 0x1.37423899a1558p13, // 6 / (pi/128)^2
    .C2 = 0x1.9f02f6222c720p11, // 2 / (pi/128)^2
};

} // namespace zelk::tables
