// Constants of single precision square root and reciprocal square root.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Sqrtf4 {
    Constant<float4> s_fHalf;
    Constant<float4> s_fThree;
    Constant<float4> s_dwOne;
    Constant<int4>
        s_dwMinNorm; // x - MinNorm > NormBound, as signed words: x is not a positive normal finite number
    Constant<int4> s_dwNormBound;
    Constant<int4> sign_exponent; // sign and exponent field
    Constant<float4> infinity;
};
ZELK_TABLE Sqrtf4 sqrtf4;

} // namespace zelk::tables
