// Constants of the single precision complex square root.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Csqrtf2 {
    Constant<int4> flSignY;   // the sign bit of the imaginary parts
    Constant<int4> flAbsMask; // clears the sign
    Constant<uint4>
        flAdd; // |bits| + flAdd > flCmp, signed: normal, finite and above the smallest normal number
    Constant<int4> flCmp;
    Constant<float4> flOne;     // what lanes outside that range are replaced by
    Constant<long2> dbAbsMask;  // clears the sign
    Constant<long2> i64Half;    // one unit of the exponent: subtracted, it halves
    Constant<long2> dbRcpMask;  // the exponent's lowest bit and the fraction
    Constant<long2> dbHalf;     // with that the pattern of a binary32 number in [1/2, 2), 29 bits to the left
    Constant<uint4> dbBias;     // high words: the halved exponent
    Constant<uint4> dbBias4Inv; // high words: brings the estimate's exponent from binary32 to binary64
    Constant<double2> dbA1;     // (1 + e)^(-1/2) = 1 + A1 e + A2 e^2
    Constant<double2> dbA2;
    Constant<double2> dbOneHalf;
    Constant<double2> dbOne;
    Constant<double2> Zero;
};
ZELK_TABLE Csqrtf2 csqrtf2;

} // namespace zelk::tables
