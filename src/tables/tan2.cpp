#include "tables/tan2.h"

namespace zelk::tables {

const Tan2 tan2 = {
    .MMIABSMASK = mask64(0x7FFFFFFFFFFFFFFF),
    .MMISIGNMASK = mask64(0x8000000000000000),
    .MMDHUGE = mask32(0x40FF4000),
    .TWO_POW_30 = mask32(0x41D00000),
    .MMDINVPI2 = splat64(0x3FE45F306DC9C883),
    .MMDRSHIFT_A = splat64(0x4330000000000000),
    .MMDRSHIFT_L = splat64(0x4338000000000000),
    .MMDPI1 = splat64(0x3FF921FB40000000),
    .MMDPI2 = splat64(0x3E74442D00000000),
    .MMDPI3 = splat64(0x3CF8469880000000),
    .MMDPI4 = splat64(0x3B78CC51701B839A),
    .MMDP0 = splat64(0x3FF0000000000000),
    .MMDP1 = splat64(0xBFC06B97BF03648A),
    .MMDP2 = splat64(0x3F66FC6FE2982A7B),
    .MMDP3 = splat64(0xBEDF637DEA7C0B2C),
    .MMDQ0 = splat64(0x3FF0000000000000),
    .MMDQ1 = splat64(0xBFDD8B2134D70767),
    .MMDQ2 = splat64(0x3F97E7B68D9A55F3),
    .MMDQ3 = splat64(0xBF2B525B10D0A168),
};

const TanInterval tan2_intervals[17] = {
#include "tables/tan2_intervals.inc"
};

const TanInterval tan2_pole_intervals[17] = {
#include "tables/tan2_pole_intervals.inc"
};

} // namespace zelk::tables
