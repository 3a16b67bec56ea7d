// Constants of the single precision sine-cosine pair.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Sincosf4 {
    Constant<int4> MMIABSMASK;  // clears the sign
    Constant<int4> MMISIGNMASK; // the sign bit
    Constant<int4> MMIHUGE;     // 10000, the bound of the fast path
    Constant<int4> flTwoPow30;  // 2^30, the bound of the reduction in vectors
    Constant<int4> MMIPARMASK;  // bit 0 of a quadrant
    Constant<int4> MMITWOMASK;  // bit 1 of a quadrant
    Constant<float4> MMSINVPI;  // 2/pi
    Constant<float4> MMSRSHIFT; // 1.5 * 2^23
    Constant<float4> MMSPI1; // pi/2 = PI1 + PI2 + PI3 + PI4; at most 11 significant bits in the first three
    Constant<float4> MMSPI2;
    Constant<float4> MMSPI3;
    Constant<float4> MMSPI4;
    Constant<float4> MMSA1; // sin r = r + A1 r^3 + A2 r^5 + A3 r^7
    Constant<float4> MMSA2;
    Constant<float4> MMSA3;
    Constant<float4> MMSB0; // cos r = B0 + B1 r^2 + B2 r^4 + B3 r^6 + B4 r^8
    Constant<float4> MMSB1;
    Constant<float4> MMSB2;
    Constant<float4> MMSB3;
    Constant<float4> MMSB4;
};
ZELK_TABLE Sincosf4 sincosf4;

// The scalar routine.
struct SpecTableSincosf {
    struct Grid {        // bit patterns
        std::uint64_t c; // cos(j pi/128)
        std::uint64_t s; // sin(j pi/128)
    } grid[65];
    double pi_128;   // pi/128
    double sine_2;   // -(pi/128)^2/6: sin(f pi/128) = f pi/128 (1 + sine_2 f^2)
    double cosine_2; // -(pi/128)^2/2: cos(f pi/128) = 1 + cosine_2 f^2
};
ZELK_TABLE SpecTableSincosf __spec_table_sincosf;

} // namespace zelk::tables
