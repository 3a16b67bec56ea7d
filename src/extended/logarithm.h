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
    const long double m_hi = number_of(x.significand & 0xFFFFFFFF00000000, exponent_bias);
    const long double m_lo = number_of(x.significand, exponent_bias) - m_hi;
    Pair f = two_sum(m_hi * r - 1.0L, m_lo * r);
    if (low != 0) f = two_sum(f.hi, f.lo + low * power_of_two(-x.exponent) * r);

    const auto k = static_cast<long double>(x.exponent);
    Pair head = fast_two_sum(k * tables::ln2_hi, minus_log_r.hi);
    head.lo += k * tables::ln2_lo + minus_log_r.lo;
    return {head, f};
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
    const Pair sum = two_sum(x.head.hi, x.f.hi);
    return {sum.hi, sum.lo + (log1p_tail(x.f.hi) + (x.head.lo + x.f.lo))};
}

// ln(1 + f) for |f| <= 2^-9, with the relative error of f.
ZELK_INLINE Pair log1p_near_zero(Pair f)
{
    return {f.hi, log1p_tail(f.hi) + f.lo};
}
inline constexpr long double near_bound = 0x1p-9L;

} // namespace zelk::ZELK_TIER
