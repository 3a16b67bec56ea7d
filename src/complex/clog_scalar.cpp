// ln z = ln |z| + i arg z of one complex number with binary64 parts, z = x + iy.
// Method: ln |z|^2 with more than 64 bits: of two binary64, and where their squares may overflow or underflow
// in extended precision; near |z| = 1 by log1p of |z|^2 - 1, which is formed without cancellation. The angle
// is atan2_scalar's.
#include "complex/clog_special.h"
#include "dispatch/kernels.h"
#include "extended/arithmetic.h"
#include "extended/logarithm_parts.h"

namespace zelk::ZELK_TIER {

static constexpr double pc_thresh = 0x1.eb851eb851eb8p-6; // 0.03

// a^2 + b^2 - 1, |.| < 0.03, to full precision however much of it cancels: it may be 2^-158. The squares are
// exact in two parts each; each pass adds the terms up, the largest first, and leaves the errors of the sums
// for the next one.
ZELK_INLINE long double distance_from_one(long double a, long double b)
{
    const Pair A = two_product(a, a);
    const Pair B = two_product(b, b);
    long double terms[5];
    terms[0] = -1.0L;
    terms[1] = A.hi;
    terms[2] = B.hi;
    terms[3] = A.lo;
    terms[4] = B.lo;
    for (int pass = 0; pass < 3; ++pass)
        for (int i = 1; i < 5; ++i) {
            const Pair sum = two_sum(terms[i], terms[i - 1]);
            terms[i] = sum.hi;
            terms[i - 1] = sum.lo;
        }
    const long double distance = terms[4] + (((terms[3] + terms[2]) + terms[1]) + terms[0]);
    return distance == 0 ? 0.0L : distance; // not -0, whatever the rounding mode
}

// x and y finite.
[[gnu::noinline]] static double log_modulus(double x, double y)
{
    const long double ax = magnitude(x);
    const long double ay = magnitude(y);
    const long double a = ax > ay ? ax : ay;
    const long double b = ax > ay ? ay : ax;
    const long double s = a * a + b * b;
    if (magnitude(s - 1.0L) < pc_thresh)
        return static_cast<double>(0.5L * dispatched::log1pl_scalar(distance_from_one(a, b)));
    return static_cast<double>(0.5L * dispatched::logl_scalar(s));
}

// x^2 of moderate size: 50 bits exactly, and the rest.
ZELK_INLINE Parts square_of(double x)
{
    const Parts part = halves(x);
    return {part.hi * part.hi, (part.hi + part.hi) * part.lo + part.lo * part.lo};
}

// x and y of moderate size.
ZELK_INLINE double log_moderate_modulus(double x, double y)
{
    const Parts x2 = square_of(x);
    const Parts y2 = square_of(y);
    const Parts s = two_sum(x2.hi, y2.hi);
    const double lo = s.lo + (x2.lo + y2.lo);
    if (__builtin_fabs((s.hi + lo) - 1.0) < pc_thresh) [[unlikely]]
        return log_modulus(x, y);
    const LogarithmParts log = logarithm_parts(logarithm_argument({s.hi, lo}));
    // All but the head is below 2^-17, and the sum above 2^-6.
    return 0.5 * (log.head + ((log.middle - log.square) + log.tail));
}

// A part is infinite or a NaN.
[[gnu::noinline, gnu::cold]] static complex_double clog_not_finite(double x, double y)
{
    if (is_nan(x) || is_nan(y)) return clog_of_nan(x, y);
    return make_complex(__builtin_inf(), dispatched::atan2_scalar(y, x));
}

ZELK_INLINE complex_double internal_clog(double x, double y)
{
    if (!is_finite(x) || !is_finite(y)) [[unlikely]]
        return clog_not_finite(x, y);
    const bool moderate = is_moderate(x) && is_moderate(y);
    const double im = dispatched::atan2_scalar(y, x);
    return make_complex(moderate ? log_moderate_modulus(x, y) : log_modulus(x, y), im);
}

complex_double clog_scalar(complex_double z)
{
    return internal_clog(real(z), imag(z));
}

} // namespace zelk::ZELK_TIER
