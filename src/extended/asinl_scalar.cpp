// asin x of one 80-bit number; method in arc_sine.h.
#include "dispatch/kernels.h"
#include "extended/arc_sine.h"

namespace zelk::ZELK_TIER {

// 1 or beyond, tiny, NaN or no number at all.
[[gnu::cold, gnu::noinline]] static long double arc_sine_off_the_path(long double x)
{
    const Words X = words_of(x);
    if (X.not_finite()) return x - x;
    const long double a = magnitude(x);
    if (a > 1.0L) return invalid();
    if (a == 1.0L) {
        const tables::HiLo& angle = quarter_turns(1);
        const long double head = angle.hi;
        return X.negative() ? -head - angle.lo : head + angle.lo;
    }
    return X.zero() ? x : and_a_little(x);
}

long double asinl_scalar(long double x)
{
    const Words X = stored_words(x);
    const long double sign = short_power_of_two(0, X.negative());
    if (in_binades(X, -3, 0)) [[likely]] {
        const unsigned interval = interval_of(X);
        if (interval < 240) [[likely]] {
            const ArcSine parts = arc_sine_from_table(X, interval);
            return parts.angle.hi * sign + (parts.offset + (parts.curvature + parts.angle.lo * sign));
        }
        const Pair complement = small_arc_cosine(X);
        return sign * (quarter_turns(1).hi - complement.hi) + sign * (quarter_turns(1).lo - complement.lo);
    }
    // Below 2^-40, asin x is x but for less than 2^-80 of it.
    if (!in_binades(X, -40, -3)) [[unlikely]]
        return arc_sine_off_the_path(x);
    const long double argument =
        number_of(X.significand) * short_power_of_two(X.biased_exponent() - exponent_bias - 63, X.negative());
    return argument + small_arc_sine_excess(argument);
}

} // namespace zelk::ZELK_TIER
