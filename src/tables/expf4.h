// Constants of the single precision exponential.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

// Tier A: 2^(j/64) in two words, a cubic.
struct Expf4A {
    Constant<float4> s_dwInvLn; // 64/ln2
    Constant<float4>
        s_dwRS; // 1.5 * 2^23: adding it rounds to an integer N, which the low mantissa bits then hold
    Constant<float4> s_dwLnHi; // ln2/64 = LnHi + LnLo; LnHi has 11 significant bits
    Constant<float4> s_dwLnLo;
    Constant<float4> s_dwA2; // e^r - 1 = r + A2 r^2 + A3 r^3
    Constant<float4> s_dwA3;
    Constant<int4> abs_mask;       // clears the sign
    Constant<int4> s_dwIndexMask;  // j = N mod 64
    Constant<int4> s_dwBias;       // 127 in units of 1/64, the unit of N
    Constant<int4> s_dwExpbMask;   // the exponent field
    Constant<int4> s_dwSpecBound;  // 87.3365402, the bound of the fast path
    Constant<int4> s_dwFirstOvf;   // 88.7228394, the first argument whose result is infinite
    Constant<int4> s_dwFirstZero;  // -103.972084, the first argument whose result is zero
    Constant<int4> s_dwPosInf;     // +infinity
    Constant<int4> s_dwNegInf;     // -infinity
    Constant<int4> s_dwBias4Ovf;   // 123 in units of 1/64
    Constant<float4> s_dwCorr4Ovf; // 2^4
    Constant<int4> s_dwBias4Unf;   // 254 in units of 1/64
    Constant<int4> s_dwLeastExpb;  // one step of the exponent field; as a number 2^-126
    Constant<float4> s_dwOne;
    std::uint32_t s_dwExp2[64][2]; // 2^(j/64) = hi + lo, hi a multiple of 2^-17
};
ZELK_TABLE Expf4A expf4_a;

// All other tiers: 2^(j/64) in one word, a quadratic.
struct Expf4L {
    // A constant for lanes with x >= 0 and its counterpart for x < 0.
    template <class Vector>
    struct BySign {
        Vector positive;
        Vector negative;
    };
    Constant<float4> s_dwInvLn; // 64/ln2
    Constant<float4> s_dwNegRS; // -1.5 * 2^23
    Constant<float4> s_dwLnHi;  // ln2/64 = LnHi + LnLo; LnHi has 11 significant bits
    Constant<float4> s_dwLnLo;
    Constant<float4> flTwo;
    Constant<float4> flOne;
    Constant<int4> flAbsMask;            // clears the sign
    Constant<int4> flBound1;             // 86.5, the bound of the fast path
    Constant<int4> flBound2;             // 105: from here on every result overflows or underflows to zero
    Constant<int4> flInf;                // infinity
    Constant<int4> s_dwIndexMask;        // j = N mod 64
    Constant<int4> s_dwBias;             // 126 in units of 1/64, the unit of N
    BySign<float4> factor;               // 2^50 and 2^-50
    BySign<int4> adjustment;             // -50 and 50, what the exponent leaves to the factor
    BySign<int4> out_of_range_seed;      // 2^127 and 2^-126: their squares overflow and underflow
    BySign<int4> infinity_seed;          // infinity and 0
    std::uint32_t s_dwExp2_Table[64][2]; // mantissa field of 2^(j/64), 0
};
ZELK_TABLE Expf4L expf4_l;

} // namespace zelk::tables
