// The complex arc cosine in extended precision without a call: distances and roots in the x87 unit, what
// comes after them, where binary64 carries the rest of a sum, in the SSE unit. An 80-bit number goes through
// memory as two binary64: the processor's load of one holds up the calls that follow.
#pragma once

#include "complex/classes.h"
#include "complex/parts.h"
#include "extended/arc.h"
#include "extended/logarithm.h"
#include "extended/logarithm_parts.h"

namespace zelk::ZELK_TIER {

// The angle of the point (+-X, N), N and X positive, as in extended/direction.h: with c = n/128 next to the
// quotient a/b of the lesser and the greater coordinate, the angles of (b, a) and (1, c) differ by
// atan t, t = (a - c b)/(b + c a).
ZELK_INLINE double direction_in_parts(Parts N, double X, bool steep, bool left)
{
    const Parts a = steep ? Parts{X, 0} : N;
    const Parts b = steep ? N : Parts{X, 0};
    const int n = _mm_cvttsd_si32(_mm_set_sd(a.hi * 128 / b.hi + 0.5));
    const double c = n;
    // The products of the upper parts and their difference are exact in 64 bits.
    const long double rest =
        (static_cast<long double>(128 * a.hi) - static_cast<long double>(c) * b.hi) + (128 * a.lo - c * b.lo);
    const bool backwards = steep != left;
    const double sign = number_from(at_exponent(static_cast<int>(backwards) << 11));
    const double unit = exclusive_or(128, sign);
    const double step = exclusive_or(c, sign);
    const long double denominator =
        (unit * b.hi + static_cast<long double>(step) * a.hi) + (unit * b.lo + step * a.lo);
    const long double t = rest / denominator;

    const int octants = steep ? 256 - n : n;
    const tables::HiLo& angle = tables::_rop_atanl_table_128[left ? 512 - octants : octants];
    const auto& R = tables::atan_offset_R;
    const auto rounded_t = static_cast<double>(t);
    const double z = rounded_t * rounded_t;
    const double curvature = rounded_t * z * (R[0].hi + z * (R[1].hi + z * R[2].hi));
    return static_cast<double>(angle.hi + (t + (curvature + angle.lo)));
}

// ln(1 + x) for x < 2^-9.
ZELK_INLINE long double small_log1p(long double x)
{
    return rounded(log1p_near_zero({x, 0}));
}

// A binary64 in memory. (The compiler would rather store and load its own 80-bit copy.)
ZELK_INLINE long double loaded(const double& x)
{
    long double copy;
    asm volatile("fldl %1" : "=t"(copy) : "m"(x));
    return copy;
}

// Where z is, so that no branch has to wait for roots: A is constant on ellipses, B on hyperbolas. Next to
// the crossovers, which the roundings may move, either formula serves.
struct Region {
    bool central; // B < 0.6417
    bool steep;   // B^2 < 1/2
    bool far;     // A > 1.5
};
ZELK_INLINE Region region_of(double X, double Y)
{
    constexpr double __Bcross = 0x1.488ce703afb7fp-1; // 0.6417
    constexpr double __Across = 1.5;
    constexpr double B2 = __Bcross * __Bcross;
    constexpr double one_less_B2 = 1 - B2;
    constexpr double central_bound = B2 * one_less_B2;
    constexpr double A2 = __Across * __Across;
    constexpr double A2_less_one = A2 - 1;
    constexpr double far_bound = A2 * A2_less_one;
    const double X2 = X * X;
    const double Y2 = Y * Y;
    const bool central = X2 * one_less_B2 - Y2 * B2 < central_bound;
    const bool steep = X2 - Y2 < 0.5;
    return {central, steep, far_bound < X2 * A2_less_one + Y2 * A2};
}

// For parts of moderate size, with which no intermediate result leaves the normal binary64 numbers: the
// formulas of first_quadrant, and arccos B = atan2(sqrt(A^2 - X^2), X) without the quotient.
ZELK_INLINE complex_double moderate_cacos(double x, double y)
{
    constexpr float half = 0.5F;
    const float minus = y > 0 ? -1.0F : 1.0F;
    const double X = __builtin_fabs(x);
    const double Y = __builtin_fabs(y);
    const Region region = region_of(X, Y);
    const long double xm1 = loaded(X) - 1.0F;
    const long double xp1 = loaded(X) + 1.0F;
    const long double y2 = loaded(Y) * loaded(Y);
    const long double R = square_root(xp1 * xp1 + y2);
    const long double S = square_root(xm1 * xm1 + y2);
    const long double A = (R + S) * half;
    const long double p = xp1 + R;

    long double N;
    if (region.central)
        N = square_root((A - loaded(X)) * (A + loaded(X)));
    else if (X > 1) { // loads apart from the rest: the compiler would do them first and keep the numbers
        const long double sum = loaded(X) + A;
        const long double t = square_root((sum / p + sum / (xm1 + S)) * half);
        N = t * loaded(Y);
    } else
        N = square_root((loaded(X) + A) * half * (loaded(Y) * loaded(Y) / p + (S - xm1)));
    const Parts N_parts = parts_of(N);

    // The second root at once, so that the two need not wait for each other's logarithm and arc tangent.
    Parts argument; // of the logarithm
    double small_modulus = 0;
    if (region.far) {
        argument = parts_of(A + square_root(A * A - 1.0F));
    } else {
        const long double Y2 = loaded(Y) * loaded(Y);
        const long double am = X >= 1 ? xm1 + S : Y2 / (S - xm1);
        const long double am1 = (am + Y2 / p) * half; // A - 1
        const long double x1 = am1 + square_root((A + 1.0F) * am1);
        if (x1 < 0x1p-9F) small_modulus = static_cast<double>(small_log1p(x1) * minus);
        const Parts less_one = parts_of(x1);
        const Parts sum = two_sum(1, less_one.hi);
        argument = fast_two_sum(sum.hi, sum.lo + less_one.lo);
    }
    const double angle = direction_in_parts(N_parts, X, region.steep, x < 0);
    if (small_modulus != 0) return make_complex(angle, small_modulus);
    const long double modulus = rounded(logarithm_parts(logarithm_argument(argument)));
    return make_complex(angle, static_cast<double>(modulus * minus));
}

} // namespace zelk::ZELK_TIER
