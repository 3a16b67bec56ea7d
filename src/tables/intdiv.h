// Constants of integer division in floating point.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Intdiv {
    int4 iNegBiggest; // -2^31
    int4 iOne;        // 1
    double2 dbRS;     // 2^52 + 2^51: 32 bits put into its lowest bits add their value
};
ZELK_TABLE Intdiv intdiv;

} // namespace zelk::tables
