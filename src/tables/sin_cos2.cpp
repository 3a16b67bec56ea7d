#include "tables/sin_cos2.h"

namespace zelk::tables {

const SinCos2 sin_cos2 = {
    .MMIABSMASK = mask64(0x7FFFFFFFFFFFFFFF),
    .MMISIGNMASK = mask64(0x8000000000000000),
    .MMDINVPI = splat64(0x3FD45F306DC9C883),
    .MMDRSHIFT = splat64(0x4338000000000000),
    .MMDHUGE = mask32(0x40FF4000),
    .dbHUGE = mask64(0x40FF400000000000),
    .MMDPI1 = splat64(0x400921FB40000000),
    .MMDPI2 = splat64(0x3E84442D00000000),
    .MMDPI3 = splat64(0x3D08469880000000),
    .MMDPI4 = splat64(0x3B88CC51701B839A),
    .dbPi4 = splat64(0xBB88CC51701B839A),
    .dbPio2 = splat64(0x3FF921FB54442D18),
    .dbNegRS = splat64(0xC338000000000000),
    .db05 = splat64(0x3FE0000000000000),
    .MMDA1 = splat64(0xBFC5555555555555),
    .MMDA2 = splat64(0x3F811111111110B0),
    .MMDA3 = splat64(0xBF2A01A01A013E1A),
    .MMDA4 = splat64(0x3EC71DE3A524F063),
    .MMDA5 = splat64(0xBE5AE6454B5DC0AB),
    .MMDA6 = splat64(0x3DE6123C686AD430),
    .MMDA7 = splat64(0xBD6AE420DC08499C),
    .MMDA8 = splat64(0x3CE880FF6993DF95),
    .TWO_POW_30 = mask32(0x41D00000),
    .THE_PI02_INV = splat64(0x3FE45F306DC9C883),
    .PI02C = {splat64(0x3FF921FA00000000), splat64(0x3EB5444300000000), splat64(0xBD473DCA00000000),
              splat64(0xBC03B39A00000000), splat64(0x3A945C06E0E68948)},
    .MMI_ONE = mask32(1),
    .MSK_LOW_BIT = mask32(0xFFFFFFFE),
};

const SpecTable __spec_table = {
    .S1 = binary64(0xBFC5555555555555),
    .S2 = binary64(0x3F81111111111111),
    .S3 = binary64(0xBF2A01A01A01A01A),
    .S4 = binary64(0x3EC71DE3A556C734),
    .C1 = binary64(0xBFE0000000000000),
    .C2 = binary64(0x3FA5555555555555),
    .C3 = binary64(0xBF56C16C16C16C17),
    .C4 = binary64(0x3EFA01A01A01A01A),
    .pi32_hi = binary64(0x3FB921FB54400000),
    .pi32_mid = binary64(0x3D90B4611A600000),
    .pi32_lo = binary64(0x3B63198A2E037073),
    .inv_pi32 = binary64(0x40245F306DC9C883),
    .shifter = binary64(0x4338000000000000),
    .angle =
        {
#include "tables/sin_cos2_angles.inc"
        },
};

} // namespace zelk::tables
