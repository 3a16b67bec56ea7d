// Constants of single precision square root and reciprocal square root.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Sqrtf4 {
    float4 s_fHalf;
    float4 s_fThree;
    float4 s_dwOne;
    int4 s_dwMinNorm; // x - MinNorm > NormBound, as signed words: x is not a positive normal finite number
    int4 s_dwNormBound;
    int4 sign_exponent; // sign and exponent field
    float4 infinity;
};
ZELK_TABLE Sqrtf4 sqrtf4;

} // namespace zelk::tables
