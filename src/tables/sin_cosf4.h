// Constants of single precision sine and cosine.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct SinCosf4 {
    int4 MMIABSMASK; // clears the sign
    int4 MMIHUGE;    // 10000, the bound of the binary32 path
    int4 flTwoPow30; // 2^30, the bound of the binary64 reduction
    int4 sign_mask;  // the sign bit
    float4 MMSINVPI; // 1/pi
    float4 MMSPIo2;  // pi/2
    float4 MMS05;    // 1/2
    float4 MMSPI1;   // pi = PI1 + PI2 + PI3 + PI4; at most 12 significant bits in the first three
    float4 MMSPI2;
    float4 MMSPI3;
    float4 MMSPI4;
    float4 MMSA3; // sin r = r + A3 r^3 + A5 r^5 + A7 r^7 + A9 r^9
    float4 MMSA5;
    float4 MMSA7;
    float4 MMSA9;
    double2 dbInvPio2; // 2/pi
    double2 PI02C_0;   // pi/2 in five parts; the first four leave 32 trailing zero bits
    double2 PI02C_1;
    double2 PI02C_2;
    double2 PI02C_3;
    double2 PI02C_4;
    double2 dbRS; // 1.5 * 2^52
    int4 dbiOne;
    int4 MSK_LOW_BIT; // clears bit 0
};
ZELK_TABLE SinCosf4 sin_cosf4;

// Tables of the scalar routines, for theta = j pi/128 and phi = f pi/128:
// f(theta + phi) = a_j f (C1 - f^2) + b_j (C2 - f^2), signs by quadrant.
struct SpecTablef {
    struct Grid {
        std::uint64_t a;
        std::uint64_t b;
    };
    // 128/pi for binary32 exponents from 142 + 8k on, less the multiples of 256 that cannot matter there: the
    // upper 40 bits of `packed` are a double, its lower 24 bits are the top of a second one, `low` is the
    // rest.
    struct Reduction {
        std::uint64_t packed;
        std::uint64_t low;
    };
    Grid grid[65];
    Reduction reduction[15];
};
ZELK_TABLE SpecTablef __spec_table_sinf;
ZELK_TABLE SpecTablef __spec_table_cosf;

struct SpecConstantsf {
    double C1;               // 6 / (pi/128)^2
    double C2;               // 2 / (pi/128)^2
    std::uint64_t high_mask; // sign, exponent and 28 mantissa bits
};
ZELK_TABLE SpecConstantsf spec_constantsf;

} // namespace zelk::tables
