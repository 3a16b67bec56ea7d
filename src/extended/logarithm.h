// ln x in 80 bits: x = 2^k m, r a reciprocal of m from the table, f = m r - 1, |f| < 0.00226:
// ln x = (k ln2 - ln r) + ln(1 + f). Next to 1, where that would cancel, f = x - 1 alone.
#pragma once

#include "extended/arithmetic.h"
#include "tables/extended.h"
#include "tables/extended_explog.h"

namespace zelk::ZELK_TIER {

// ln x = head + ln(1 + f), heads and tails as they come.
struct LogarithmReduction {
    Pair head;
    Pair f;
};

// Of x + low, |low| at most an ulp of x.
ZELK_INLINE LogarithmReduction reduce_logarithm(Normalised x, long double low = 0)
{
    const auto j = static_cast<unsigned>(x.significand >> 55 & 255);
    const long double r = tables::_rop_double_rcp_table_256[j];
    const tables::HiLo minus_log_r = tables::_rop_logl_table_256[j];
    // m in two halves of 32 bits: r has 11, so that both products are exact.
    const long double m_hi = from_integer(static_cast<std::uint32_t>(x.significand >> 32)) * 0x1p-31L;
    const long double m_lo = from_integer(static_cast<std::uint32_t>(x.significand)) * 0x1p-63L;
    Pair f = settled(two_sum(m_hi * r - 1.0L, m_lo * r));
    if (low != 0) f = two_sum(f.hi, f.lo + low * power_of_two(-x.exponent) * r);

    const auto k = static_cast<long double>(x.exponent);
    Pair head = fast_two_sum(k * tables::ln2_hi, minus_log_r.hi);
    head.lo += k * tables::ln2_lo + minus_log_r.lo;
    return {settled(head), f};
}

// ln(1 + f) - f + f^2/2 - f^3/3 = f^4 R(f).
ZELK_INLINE long double logarithm_rest(long double f)
{
    return polynomial(tables::log1p_R, f);
}

// ln(1 + f) - f.
ZELK_INLINE long double log1p_tail(long double f)
{
    return f * f * (-0.5L + f * (tables::third_hi + f * logarithm_rest(f)));
}

// One addition from the result; the error that it does not know is below 2^-72 of it.
ZELK_INLINE Pair logarithm(LogarithmReduction x)
{
    const Pair sum = settled(two_sum(x.head.hi, x.f.hi));
    const Pair f = settled({x.f.hi, x.head.lo + x.f.lo});
    return {sum.hi, sum.lo + (log1p_tail(f.hi) + f.lo)};
}

// ln(1 + f) for |f| <= 2^-9, with the relative error of f.
ZELK_INLINE Pair log1p_near_zero(Pair f)
{
    return {f.hi, log1p_tail(f.hi) + f.lo};
}
inline constexpr long double near_bound = 0x1p-9L;

// ln x, |x - 1| <= 2^-9
ZELK_INLINE long double logarithm_near_one(long double x)
{
    const long double f = x - 1.0L; // exact
    return f == 0 ? 0.0L : rounded(log1p_near_zero({f, 0}));
}

// ln x of a positive normal number that is 2^exponent times the significand.
ZELK_INLINE long double logarithm_of(long double x, Normalised parts)
{
    if (magnitude(x - 1.0L) <= near_bound) [[unlikely]]
        return logarithm_near_one(x);
    return rounded(logarithm(reduce_logarithm(parts)));
}

// ln(1 + x), 2^-66 <= |x| < 2^72 and x > -1.
ZELK_INLINE long double logarithm_of_one_plus(long double x)
{
    if (magnitude(x) <= near_bound) return rounded(log1p_near_zero({x, 0}));
    const Pair sum = two_sum(1.0L, x);
    return rounded(logarithm(reduce_logarithm(normalised(words_of(sum.hi)), sum.lo)));
}

} // namespace zelk::ZELK_TIER
