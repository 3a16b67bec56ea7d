// Constants of the single precision 2^x.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Exp2f4 {
    Constant<float4>
        flRS; // 1.5 * 2^17: adding it rounds to a multiple N/64, and the low mantissa bits then hold N
    Constant<float4> flA1;           // 2/ln2
    Constant<float4> flA0;           // 2/(ln2)^2
    Constant<int4> flAbsMask;        // clears the sign
    Constant<int4> flExpMask;        // the exponent field
    Constant<int4> flJMask;          // j = N mod 64
    Constant<int4> flBias;           // 127 in units of 1/64, the unit of N
    Constant<int4> flScaleMask;      // the exponent in those units
    Constant<int4> flMaxBound;       // 123.5, the bound of the fast path
    std::uint32_t s_fExp2Tbl[64][2]; // T_j = (ln2)^2/2 2^(j/64), 0
    // Beyond the fast path.
    int4 flPosInf;    // infinity
    int4 flBelow128;  // the last number below 128, where infinity begins
    int4 flBelow150;  // the last number below 150: from -150 down the result is 0
    int4 flOne;       // 1
    int4 flShift;     // 24
    int4 flShiftUp;   // 2^24
    int4 flShiftDown; // 2^-24
};
ZELK_TABLE Exp2f4 exp2f4;

} // namespace zelk::tables
