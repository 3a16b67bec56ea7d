// acos x of one 80-bit number: the angle that asin x leaves of pi/2; method in arc_sine.h.
#include "dispatch/kernels.h"
#include "extended/arc_sine.h"

namespace zelk::ZELK_TIER {

// 1 or beyond, tiny, NaN or no number at all.
[[gnu::cold, gnu::noinline]] static long double arc_cosine_off_the_path(long double x)
{
    const Words X = words_of(x);
    if (X.not_finite()) return x - x;
    const long double a = magnitude(x);
    if (a > 1.0L) return invalid();
    if (a == 1.0L) {
        if (!X.negative()) return 0.0L;
        const long double head = quarter_turns(2).hi;
        return head + quarter_turns(2).lo;
    }
    // What is below 2^-100 does not show beside pi/2.
    const long double tiny =
        X.biased_exponent() < exponent_bias - 100 ? (X.negative() ? -0x1p-100L : 0x1p-100L) : x;
    return quarter_turns(1).hi - (tiny - quarter_turns(1).lo);
}

long double acosl_scalar(long double x)
{
    const Words X = stored_words(x);
    if (in_binades(X, -3, 0)) [[likely]] {
        const unsigned interval = interval_of(X);
        if (interval < 240) [[likely]] {
            const ArcSine parts = arc_sine_from_table(X, interval);
            return (quarter_turns(1).hi - parts.angle.hi * parts.sign) -
                   (parts.offset + (parts.curvature + (parts.angle.lo * parts.sign - quarter_turns(1).lo)));
        }
        const Pair angle = small_arc_cosine(X);
        if (!X.negative()) return angle.hi + angle.lo;
        return (quarter_turns(2).hi - angle.hi) + (quarter_turns(2).lo - angle.lo);
    }
    if (!in_binades(X, -40, -3)) [[unlikely]]
        return arc_cosine_off_the_path(x);
    const long double argument =
        number_of(X.significand) * short_power_of_two(X.biased_exponent() - exponent_bias - 63, X.negative());
    const Pair rest = fast_two_sum(quarter_turns(1).hi, -argument);
    return rest.hi + (rest.lo - (small_arc_sine_excess(argument) - quarter_turns(1).lo));
}

} // namespace zelk::ZELK_TIER
