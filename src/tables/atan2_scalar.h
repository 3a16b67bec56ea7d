// Constants of the scalar arc tangent of two arguments, in extended precision.
#pragma once

#include "tables/wide.h"

namespace zelk::tables {

struct Atan2ScalarRow {
    Wide angle; // atan c
    double c;   // j/64
};
struct Atan2Scalar {
    Wide base[4];   // what the angle of the first octant is added to or taken from: 0, pi, pi/2, pi/2
    Wide taylor[4]; // arctan r = r + r^3 (taylor[0] + taylor[1] r^2 + ...), relative error below 2^-73
    Atan2ScalarRow row[65];
};
extern const __attribute__((visibility("hidden"))) Atan2Scalar atan2_scalar;

} // namespace zelk::tables
