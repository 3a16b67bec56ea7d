// Constants of the scalar arc cosine, in extended precision.
#pragma once

namespace zelk::tables {

struct AcosScalar {
    long double __pil;        // pi
    long double __pi_2l;      // pi/2
    long double __pi_34l[2];  // pi/4, 3 pi/4
    long double __one_sqrt2l; // 1/sqrt 2
    long double __QL[8];      // arcsin y = y + y^3 QL(y^2), |y| <= sin(pi/16)
    long double __PL[12];     // arcsin y = y + y^3 PL(y^2), |y| <= sin(pi/8)
    long double __ones[2];    // 1, -1
    long double __small_value_64;
};
extern const __attribute__((visibility("hidden"))) AcosScalar acos_scalar;

} // namespace zelk::tables
