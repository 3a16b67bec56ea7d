// tan x of one 80-bit number: the quotient of sine and cosine (sin_cos.h) before they are rounded.
#include "dispatch/kernels.h"
#include "extended/sin_cos.h"

namespace zelk::ZELK_TIER {

[[gnu::cold, gnu::noinline]] static long double tangent_off_the_path(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite()) return x - x;
    return words.zero() ? x : and_a_little(x);
}

// Sine and cosine one addition from their rounding: the first part has at most 53 bits.
struct Quotient {
    Pair numerator;
    Pair denominator;
};
// Rounded once: 11 bits of it, whose product with 53 is exact, and the rest.
ZELK_INLINE long double rounded(const Quotient& x, float sign)
{
    const long double reciprocal = 1.0L / (x.denominator.hi + x.denominator.lo);
    const auto estimate = static_cast<float>((x.numerator.hi + x.numerator.lo) * reciprocal);
    const auto bits = __builtin_bit_cast(std::uint32_t, estimate) & 0xFFFFE000;
    const long double head = __builtin_bit_cast(float, bits);
    const long double rest =
        (x.numerator.hi - head * x.denominator.hi) + (x.numerator.lo - head * x.denominator.lo);
    return head * sign + rest * reciprocal * sign;
}

ZELK_INLINE bool next_to_multiple(int n)
{
    return static_cast<unsigned>(n + 15) % 256 < 31;
}
// Next to a zero or a pole.
[[gnu::noinline]] static long double tangent_next_to_multiple(Words x, int n)
{
    const Pair distance = distance_from(n, x);
    const auto& k = tables::extended_trig;
    const long double r = distance.hi + distance.lo;
    const long double z = r * r;
    float head; // of the sine; the product with 11 bits is exact
    asm("fsts %0" : "=m"(head) : "t"(r));
    const Pair sine = {head, (distance.hi - head) + (distance.lo + small_sine_excess(r))};
    const Pair cosine = {
        1.0L, z * (k.cosine_2 + z * (k.cosine_4 + z * (k.cosine_6 + z * (k.cosine_8 + z * k.cosine_10))))};
    if (((n + 128) >> 8 & 1) == 0) return rounded(Quotient{sine, cosine}, 1);
    return rounded(Quotient{cosine, sine}, -1);
}

long double tanl_scalar(long double x)
{
    const Words X = stored_words(x);
    if (off_the_path(X)) [[unlikely]]
        return tangent_off_the_path(x);
    const Angle angle = angle_of(X);
    if (next_to_multiple(angle.n)) [[unlikely]]
        return tangent_next_to_multiple(X, angle.n);

    const Powers p = powers_of(angle.t);
    const tables::HiLo* const sines = tables::extended_trig.sines;
    const unsigned row = row_of(angle.n);
    const tables::HiLo& S = sines[row];
    const tables::HiLo& C = sines[256 - row];
    const float sign = (angle.n >> 8 & 1) != 0 ? -1 : 1;
    const long double sine = p.sine * sign;
    const Pair numerator = {S.hi, (S.lo + S.hi * p.cosine) + (C.hi + static_cast<long double>(C.lo)) * sine};
    const Pair denominator = {C.hi,
                              (C.lo + C.hi * p.cosine) - (S.hi + static_cast<long double>(S.lo)) * sine};
    return rounded(Quotient{numerator, denominator}, sign);
}

} // namespace zelk::ZELK_TIER
