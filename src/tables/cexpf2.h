// Constants of the single precision complex exponential.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Cexpf2 {
    Constant<int4> BndExpSin;           // the largest |x| and |y| of the vector path: 87.3365, 10000
    Constant<int4> AbsMask;             // clears the sign
    Constant<int4> flSignY;             // the sign bit of the imaginary parts
    Constant<float4> s_dw128DivLog2;    // 128/ln2
    Constant<float4> s_fRS;             // 1.375 * 2^23
    Constant<float4> s_dwLog2Div128_Hi; // ln2/128 = Hi + Lo; 9 significant bits in Hi
    Constant<float4> s_dwLog2Div128_Lo;
    Constant<int4> IndexMask;    // the row of the table in k
    Constant<int4> s_dwBiasf;    // 128, the bias of 2^(m + 1), in the exponent field
    Constant<int4> ExponentUnit; // 1 in the exponent field: subtracted, it halves
    Constant<float4> s_fA2;      // e^r = 1 + r + A2 r^2
    Constant<float4> MMSINVPI;   // 2/pi
    Constant<float4> MMSRSHIFT;  // 1.5 * 2^23
    Constant<float4> MMSPI1; // pi/2 = PI1 + PI2 + PI3 + PI4; at most 11 significant bits in the first three
    Constant<float4> MMSPI2;
    Constant<float4> MMSPI3;
    Constant<float4> MMSPI4;
    Constant<int4> RealQuarter; // 1 in the real parts: cos y = sin(y + pi/2)
    Constant<int4> MMIPARMASK;  // bit 0 of the quadrant
    Constant<int4> MMITWOMASK;  // bit 1
    Constant<float4> MMSA1;     // sin t = t + A1 t^3 + A2 t^5 + A3 t^7
    Constant<float4> MMSA2;
    Constant<float4> MMSA3;
    Constant<float4> MMSB0; // cos t = B0 + B1 t^2 + ... + B4 t^8
    Constant<float4> MMSB1;
    Constant<float4> MMSB2;
    Constant<float4> MMSB3;
    Constant<float4> MMSB4;
};
ZELK_TABLE Cexpf2 cexpf2;

// 2^(j/128) = hi (1 + lo).
ZELK_TABLE std::uint32_t exp2f_table[128][2];

} // namespace zelk::tables
