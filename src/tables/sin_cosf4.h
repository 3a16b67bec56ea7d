// Constants of single precision sine and cosine.
#pragma once

#include "tables/inverse_pi_chunks.h"

namespace zelk::tables {

struct SinCosf4 {
    Constant<int4> MMIABSMASK; // clears the sign
    Constant<int4> MMIHUGE;    // 10000, the bound of the binary32 path
    Constant<int4> flTwoPow30; // 2^30, the bound of the binary64 reduction
    Constant<int4> sign_mask;  // the sign bit
    Constant<float4> MMSINVPI; // 1/pi
    Constant<float4> MMSPIo2;  // pi/2
    Constant<float4> MMS05;    // 1/2
    Constant<float4> MMSPI1;   // pi = PI1 + PI2 + PI3 + PI4; at most 12 significant bits in the first three
    Constant<float4> MMSPI2;
    Constant<float4> MMSPI3;
    Constant<float4> MMSPI4;
    Constant<float4> MMSA3; // sin r = r + A3 r^3 + A5 r^5 + A7 r^7 + A9 r^9
    Constant<float4> MMSA5;
    Constant<float4> MMSA7;
    Constant<float4> MMSA9;
    Constant<double2> dbInvPio2; // 2/pi
    Constant<double2> PI02C[5];  // pi/2 in five parts; the first four leave 32 trailing zero bits
    Constant<double2> dbRS;      // 1.5 * 2^52
    Constant<int4> dbiOne;
    Constant<int4> MSK_LOW_BIT; // clears bit 0
};
ZELK_TABLE SinCosf4 sin_cosf4;

// Tables of the scalar routines, for theta = j pi/128 and phi = f pi/128:
// f(theta + phi) = a_j f (C1 - f^2) + b_j (C2 - f^2), signs by quadrant.
struct SpecTablef {
    struct Grid {
        std::uint64_t a;
        std::uint64_t b;
    };
    Grid grid[65];
    InversePiChunks reduction; // modulo 256
};
ZELK_TABLE SpecTablef __spec_table_sinf;
ZELK_TABLE SpecTablef __spec_table_cosf;

struct SpecConstantsf {
    double C1; // 6 / (pi/128)^2
    double C2; // 2 / (pi/128)^2
};
ZELK_TABLE SpecConstantsf spec_constantsf;

} // namespace zelk::tables
