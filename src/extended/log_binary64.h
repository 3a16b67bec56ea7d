// ln x of one double, in binary64 with a low part:
// x = 2^k m, r the table's reciprocal of m, f = m r - 1 exactly, |f| < 2^-8:
// ln x = (k ln2 - ln r) + ln(1 + f). The head is a multiple of 2^-42 and exact, and zero next to 1.
#pragma once

#include "lanes/lanes.h"
#include "lanes/tier.h"
#include "tables/log_scalar.h"

namespace zelk::ZELK_TIER {

// ln x = (head + f) + (head_low + (ln(1 + f) - f)).
struct LogReduction64 {
    double head;
    double head_low;
    double f;
    double r;
    int exponent;
};

// Of a positive normal number.
ZELK_INLINE LogReduction64 reduce_log(double x)
{
    const auto& k = tables::log_scalar;
    const auto upper_word = static_cast<int>(__builtin_bit_cast(std::uint64_t, x) >> 32);
    const auto& row = tables::log_scalar_rows[upper_word >> 12 & 255];
    const int exponent = (upper_word >> 20) - 1023;

    const long2 m_bits = (as_long2(double2{x, 0}) & k.fraction) | as_long2(k.one.value);
    const double m = as_double2(m_bits)[0];
    const double m_hi = as_double2(m_bits & k.upper_half)[0];
    const double f = (m_hi * row.r - 1.0) + (m - m_hi) * row.r;

    const auto n = static_cast<double>(exponent);
    return {n * k.ln2_hi + row.minus_ln, n * k.ln2_lo + row.minus_ln_low, f, row.r, exponent};
}

// ln(1 + f) - f = -f^2/2 + f^3 R(f), |f| < 2^-8.
ZELK_INLINE double log1p_rest(double f)
{
    const auto& R = tables::log_scalar.R;
    const double f2 = f * f;
    const double cubic = (R[0] + f * R[1]) + f2 * ((R[2] + f * R[3]) + f2 * R[4]);
    return f2 * (f * cubic - 0.5);
}

ZELK_INLINE double log_binary64(double x)
{
    const LogReduction64 t = reduce_log(x);
    const double sum = t.head + t.f;
    const double low = (t.head - sum) + t.f;
    return sum + (low + (t.head_low + log1p_rest(t.f)));
}

// ln(1 + x) for x > -1, |x| >= 2^-8: 1 + x as a sum with its rounding error, and the error's share in f.
ZELK_INLINE double log1p_binary64(double x)
{
    const double s = 1.0 + x;
    const double x_part = s - 1.0;
    const double s_error = (1.0 - (s - x_part)) + (x - x_part);
    const LogReduction64 t = reduce_log(s);
    // 2^-exponent, or 0 where the error does not count any more
    const auto scale_bits = static_cast<std::uint64_t>(1023 - t.exponent) << 52;
    const double c = s_error * __builtin_bit_cast(double, scale_bits) * t.r;
    const double f = t.f + c;
    const double f_error = c - (f - t.f);
    const double sum = t.head + f;
    const double low = (t.head - sum) + f;
    return sum + (low + (f_error + (t.head_low + log1p_rest(f))));
}

} // namespace zelk::ZELK_TIER
