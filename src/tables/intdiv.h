// Constants of integer division in floating point.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Intdiv {
    int4 iNegBiggest; // -2^31
    int4 iOne;        // 1
    int4 iLow31Mask;  // clears the top bit
    float4 flTwo;     // 2
    float4 flRS31;    // 2^54, whose lowest fraction bit weighs 2^31
    double2 dbTwo;    // 2
    double2 dbC;      // -(1 + 2^-36): turns the reciprocal's sign and biases it away from zero
    double2 dbRS;     // 2^52 + 2^51: 32 bits put into its lowest bits add their value
};
ZELK_TABLE Intdiv intdiv;

} // namespace zelk::tables
