// The subtraction of a multiple of pi/2 or pi/4 that all reductions below 2^30 share.
#pragma once

#include "lanes/lanes.h"
#include "tables/constant.h"

namespace zelk::ZELK_TIER {

// x - n K for an integer n below 2^31 in magnitude, K in five parts. The products with the first four parts
// are exact, and the rounding errors of the differences are carried along: the result keeps its relative
// accuracy where nearly everything cancels.
ZELK_INLINE double2 subtract_multiple(double2 x, double2 n, const tables::Constant<double2> (&K)[5])
{
    const double2 P1 = K[1] * n;
    const double2 P2 = K[2] * n;
    const double2 P3 = K[3] * n;
    const double2 a = x - K[0] * n;
    const double2 b = a - P1;
    const double2 e1 = (a - b) - P1;
    const double2 c = b - P2;
    const double2 e2 = (b - c) - P2;
    const double2 e = e1 + e2;
    const double2 c_sum = c + e;
    const double2 e_rest = e + (c - c_sum);
    const double2 d = c_sum - P3;
    const double2 e3 = (c_sum - d) - P3;
    return ((e_rest + e3) - K[4] * n) + d;
}

} // namespace zelk::ZELK_TIER
