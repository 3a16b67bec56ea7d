// Constants of the scalar arc cosine, in extended precision.
#pragma once

#include "tables/wide.h"

namespace zelk::tables {

struct AcosScalar {
    Wide __pil;        // pi
    Wide __pi_2l;      // pi/2
    Wide __pi_34l[2];  // pi/4, 3 pi/4
    Wide __one_sqrt2l; // 1/sqrt 2
    Wide __QL[8];      // arcsin y = y + y^3 QL(y^2), |y| <= sin(pi/16)
    Wide __PL[12];     // arcsin y = y + y^3 PL(y^2), |y| <= sin(pi/8)
    Wide __ones[2];    // 1, -1
    Wide __small_value_64;
};
extern const __attribute__((visibility("hidden"))) AcosScalar acos_scalar;

} // namespace zelk::tables
