// Constants of the scalar arc tangent of two arguments, in extended precision.
#pragma once

#include "tables/wide.h"

namespace zelk::tables {

struct Atan2Scalar {
    Wide pi;
    Wide pi_2;
    Wide taylor[4]; // arctan r = r + r^3 (taylor[0] + taylor[1] r^2 + ...), relative error below 2^-73
    Wide angle[65]; // atan(j/64)
};
extern const __attribute__((visibility("hidden"))) Atan2Scalar atan2_scalar;

} // namespace zelk::tables
