#include "tables/invsqrt2.h"

namespace zelk::tables {

const Invsqrt2 invsqrt2 = {
    .min_normal_high = mask32(0x80100000),
    .ordinary_bound = mask32(0xFFBFFFFF),
    .flMant1Mask = mask32(0x00FFFFFF),
    .flJBit = mask32(0x00800000),
    .flOne = mask32(0x3F800000),
    .fldbJBit = mask32(0x00100000),
    .fldbExpo1Mask = mask32(0xFFE00000),
    .fl3BiD2MSBi = mask32(0x57F00000),
    .dbHi = mask64(0xFFFFFFFF00000000),
    .dbOne = splat64(0x3FF0000000000000),
    .dbC1 = splat64(0xBFE0000000000000),
    .dbC2 = splat64(0x3FD8000000000000),
    .dbC3 = splat64(0xBFD4000000000000),
    .dbC4 = splat64(0x3FD1800000000000),
    .dbC5 = splat64(0xBFCF800000000000),
};

} // namespace zelk::tables
