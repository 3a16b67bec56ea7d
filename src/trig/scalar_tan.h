// The scalar double precision tangent for large arguments.
#pragma once

#include "lanes/lanes.h"
#include "tables/tan2.h"
#include "trig/payne_hanek.h"

namespace zelk::ZELK_TIER {

// c1 u + c2 u^2 + ... + c14 u^14
static inline double interval_polynomial(const tables::TanInterval& interval, double u)
{
    double p = interval.c[13];
    for (int n = 12; n >= 0; --n)
        p = p * u + interval.c[n];
    return p * u;
}

// tan x for |x| >= 2^-9, within 0.6 ulp.
// Method: x = part pi/2 + r exactly; |r| = m pi/64 + u. Even parts: tan r = tan(m pi/64 + u). Odd parts:
// -cot r = -(1/r - g(m pi/64 + u)), g regular. Both functions by a series in u round a value that is kept as
// a pair.
[[maybe_unused, gnu::noinline]] static double __static_scalar_tan(double x)
{
    const auto pattern = __builtin_bit_cast(std::uint64_t, x);
    if ((pattern & 0x7FF0000000000000) == 0x7FF0000000000000) return x - x;

    // |r| = (head + tail) pi/4; the head has 30 significant bits.
    const PartOfTurn turn = reduce_exactly(x, 2);
    const bool negative = turn.head < 0;
    const double head = negative ? -turn.head : turn.head;
    const double tail = negative ? -turn.tail : turn.tail;
    const int m = static_cast<int>(head * 16 + 0.5);

    // u = (head - m/16 + tail) pi/4 as a pair: the first product is exact.
    const double pi04_high = 0x1.921fb0p-1; // 22 significant bits
    const double pi04_low = 0x1.5110b4611a626p-23;
    const double pi04 = 0x1.921fb54442d18p-1;
    const auto times_pi04 = [&](double leading) {
        const double product = leading * pi04_high;
        const double rest = leading * pi04_low + tail * pi04;
        const double sum = product + rest;
        return double2{sum, (product - sum) + rest};
    };
    const double2 u = times_pi04(head - m * 0.0625);

    double result;
    if ((turn.part & 1) == 0) {
        const auto& interval = tables::tan2_intervals[m];
        const double sum = interval.value + u[0];
        const double error = m == 0 ? 0.0 : (interval.value - sum) + u[0];
        result = sum + (error + ((u[1] + interval.value_low) + interval_polynomial(interval, u[0])));
    } else {
        const auto& interval = tables::tan2_pole_intervals[m];
        const double2 r = times_pi04(head);
        // 1/r = q + e/r with q of 26 significant bits: 1 - q r is exact but for the last product.
        const auto leading_26 = [](double y) {
            return __builtin_bit_cast(double, __builtin_bit_cast(std::uint64_t, y) & 0xFFFFFFFFF8000000);
        };
        const double reciprocal = 1.0 / r[0];
        const double q = leading_26(reciprocal);
        const double r_high = leading_26(r[0]);
        const double e = ((1.0 - r_high * q) - (r[0] - r_high) * q) - r[1] * q;
        // 1/r - g
        const double sum = q - interval.value;
        const double error = (q - sum) - interval.value;
        const double rest = interval.value_low + interval_polynomial(interval, u[0]);
        result = -(sum + (error + (reciprocal * e - rest)));
    }
    return negative ? -result : result;
}

} // namespace zelk::ZELK_TIER
