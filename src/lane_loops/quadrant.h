// Sine and cosine in 80 bits of binary32 arguments below 2^22, without the pairs and the integer arithmetic
// that 80-bit arguments need. Relative error below 2^-50.
#pragma once

#include "extended/arithmetic.h"

namespace zelk::ZELK_TIER {

inline constexpr std::uint32_t quadrant_bound = 0x4A800000; // 2^22

// x = n pi/2 + r, |r| < 0.79.
struct Quadrant {
    int n;
    long double r;
};

// n has 22 bits and half_pi_hi 42: their product is exact, and so is the difference from x, which has no bit
// below 2^-41 unless n is 0.
ZELK_INLINE long double less_quadrants(long double x, int n)
{
    constexpr long double half_pi_hi = 0xC.90FDAA2214p-3L;
    constexpr long double half_pi_lo = 0xA.308D313198A2E03p-45L;
    const auto multiple = static_cast<long double>(n);
    return (x - multiple * half_pi_hi) - multiple * half_pi_lo;
}
ZELK_INLINE Quadrant quadrant_of(long double x)
{
    constexpr long double two_over_pi = 0xA.2F9836E4E44152Ap-4L;
    constexpr long double bound = 0.79L;
    int n = round_to_int(x * two_over_pi);
    long double r = less_quadrants(x, n);
    // In the directed modes n need not be the nearest integer.
    if (magnitude(r) > bound) [[unlikely]] {
        n += r > 0 ? 1 : -1;
        r = less_quadrants(x, n);
    }
    return {n, r};
}

// The Taylor series; the next terms are below 2^-71.
ZELK_INLINE long double sine_of(long double r)
{
    static constexpr tables::Wide c[] = {-1.0L / 6,
                                 1.0L / 120,
                                 -1.0L / 5040,
                                 1.0L / 362880,
                                 -1.0L / 39916800,
                                 1.0L / 6227020800,
                                 -1.0L / 1307674368000,
                                 1.0L / 355687428096000,
                                 -1.0L / 121645100408832000};
    const long double z = r * r;
    return r + r * z * polynomial(c, z);
}
ZELK_INLINE long double cosine_of(long double r)
{
    static constexpr tables::Wide c[] = {-0.5L,
                                 1.0L / 24,
                                 -1.0L / 720,
                                 1.0L / 40320,
                                 -1.0L / 3628800,
                                 1.0L / 479001600,
                                 -1.0L / 87178291200,
                                 1.0L / 20922789888000,
                                 -1.0L / 6402373705728000,
                                 1.0L / 2432902008176640000};
    const long double z = r * r;
    return 1.0L + z * polynomial(c, z);
}

// The sine n quadrants on, from sine and cosine.
ZELK_INLINE long double in_quadrant(int n, long double sine, long double cosine)
{
    const long double value = (n & 1) != 0 ? cosine : sine;
    return (n & 2) != 0 ? -value : value;
}
ZELK_INLINE long double sine_in_quadrant(int n, long double r)
{
    const long double value = (n & 1) != 0 ? cosine_of(r) : sine_of(r);
    return (n & 2) != 0 ? -value : value;
}

} // namespace zelk::ZELK_TIER
