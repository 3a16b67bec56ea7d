// ln x of 80 bits in pieces of binary64: x = 2^k m, r a reciprocal of m from the table, f = m r - 1,
// |f| < 0.00226: ln x = k ln2 - ln r + f - f^2/2 + f^3 P(f). Next to 1, where that would cancel, other
// formulas serve.
#pragma once

#include "extended/parts.h"
#include "tables/extended.h"
#include "tables/extended_parts.h"

namespace zelk::ZELK_TIER {

// 2^k (m_hi + m_lo): 25 bits of m, 1 <= m < 2, and the rest; j is what the 8 bits after the
// integer bit say.
struct LogarithmArgument {
    double m_hi;
    double m_lo;
    int k;
    unsigned j;
};

// Of 2^k times the significand.
ZELK_INLINE LogarithmArgument logarithm_argument(const StackedNumber& x, int k)
{
    const __m128i significand = x.significand();
    const __m128i one = at_exponent(bias64);
    const __m128i leading = _mm_and_si128(_mm_srli_epi64(significand, 11), lane_of(0x000FFFFFF0000000));
    const __m128i unit = at_exponent(bias64 - 11); // its ulp is 2^-63
    const __m128i rest = _mm_and_si128(significand, lane_of(0x7FFFFFFFFF));
    return {number_from(_mm_or_si128(leading, one)),
            number_from(_mm_or_si128(rest, unit)) - number_from(unit), k, x.upper() >> 23 & 255};
}

// Of a positive normal number.
ZELK_INLINE LogarithmArgument logarithm_argument(double x)
{
    const __m128i bits = bits_from(x);
    const auto upper = static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_srli_epi64(bits, 32)));
    const __m128i one = at_exponent(bias64);
    const __m128i leading = _mm_and_si128(bits, lane_of(0x000FFFFFF0000000));
    const __m128i rest = _mm_and_si128(bits, lane_of(0x0FFFFFFF));
    return {number_from(_mm_or_si128(leading, one)), number_from(_mm_or_si128(rest, one)) - number_from(one),
            static_cast<int>(upper >> 20) - bias64, upper >> 12 & 255};
}

// Of hi + lo, a positive normal number. (The scale of lo out of an SSE register: a double that is put
// together in integer registers takes long to load in 32-bit code.)
ZELK_INLINE LogarithmArgument logarithm_argument(Parts x)
{
    LogarithmArgument argument = logarithm_argument(x.hi);
    argument.m_lo += x.lo * number_from(at_exponent(bias64 - argument.k));
    return argument;
}

// head + (middle - square + tail): the head exact and a multiple of 2^-38, middle and square below 2^-18, the
// tail below 2^-24 and within 2^-79 but for what k ln2 adds.
struct LogarithmParts {
    double head;
    double middle;
    double square;
    double tail;
};

// ln x + correction, |correction| < 2^-38.
ZELK_INLINE LogarithmParts logarithm_parts(const LogarithmArgument& x, double correction = 0)
{
    using namespace tables::extended_parts;
    const double r = tables::_rop_double_rcp_table_256[x.j];
    const tables::HiLo minus_log_r = tables::_rop_logl_table_256[x.j];
    // r has 11 bits: both products are exact, and f_hi is a multiple of 2^-35 with at most 27 bits.
    const double f_hi = x.m_hi * r - 1;
    const double f_lo = x.m_lo * r;
    const double f = f_hi + f_lo;
    const double square = f * f;

    const double k = x.k;
    const double log_hi = (minus_log_r.hi + 0x1.8p14) - 0x1.8p14; // to a multiple of 2^-38
    const double log_lo = (minus_log_r.hi - log_hi) + minus_log_r.lo;
    const auto& c = log1p_cubic;
    const double polynomial = (c[0] + c[1] * f) + square * ((c[2] + c[3] * f) + square * (c[4] + c[5] * f));
    // f^2 = f_hi^2 + (f + f_hi) f_lo
    return {(k * ln2_hi + log_hi) + f_hi, f_lo, 0.5 * f_hi * f_hi,
            ((k * ln2_lo + (log_lo + correction)) - 0.5 * (f + f_hi) * f_lo) + f * square * polynomial};
}

ZELK_INLINE long double rounded(const LogarithmParts& x)
{
    return x.head + ((static_cast<long double>(x.middle) - x.square) + x.tail);
}
ZELK_INLINE LogarithmParts with_sign(const LogarithmParts& x, double sign)
{
    return {exclusive_or(x.head, sign), exclusive_or(x.middle, sign), exclusive_or(x.square, sign),
            exclusive_or(x.tail, sign)};
}

} // namespace zelk::ZELK_TIER
