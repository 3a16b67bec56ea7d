// Constants of the scalar arc tangent of two arguments, in extended precision.
#pragma once

namespace zelk::tables {

struct Atan2Scalar {
    long double pi;
    long double pi_2;
    long double taylor[4]; // arctan r = r + r^3 (taylor[0] + taylor[1] r^2 + ...), relative error below 2^-73
    long double angle[65]; // atan(j/64)
};
extern const __attribute__((visibility("hidden"))) Atan2Scalar atan2_scalar;

} // namespace zelk::tables
