#include "tables/tanf4.h"

namespace zelk::tables {

const Tanf4 tanf4 = {
    .MMIABSMASK = mask32(0x7FFFFFFF),
    .MMISIGNMASK = mask32(0x80000000),
    .MMIHUGE = mask32(0x461C4000),
    .flTwoPow30 = mask32(0x4E800000),
    .MMSINVPI = splat32(0x3F22F983),
    .MMSRSHIFT_A = splat32(0x4B000000),
    .MMSRSHIFT_L = splat32(0x4B400000),
    .MMSPI1 = splat32(0x3FC90000),
    .MMSPI2 = splat32(0x39FDA000),
    .MMSPI3 = splat32(0x33A22000),
    .MMSPI4 = splat32(0x2C34611A),
    .MMSP0 = splat32(0x3F800000),
    .MMSP1 = splat32(0xBDC433B8),
    .MMSQ0 = splat32(0x3F800000),
    .MMSQ1 = splat32(0xBEDBB7AF),
    .MMSQ2 = splat32(0x3C1F3375),
};

const double tanf4_intervals[32][9] = {
#include "tables/tanf4_intervals.inc"
};

} // namespace zelk::tables
