#include "reference.h"

#include "exact.h"

#include <algorithm>
#include <cmath>

namespace zelk::accuracy {

namespace {

// Largest number.
long double largest(const Format& format)
{
    return std::ldexp(1 - std::ldexp(1.0L, -format.digits), format.max_exponent);
}

} // namespace

Reference::Reference(mpfr_srcptr exact, const Format& format) : is_negative_(mpfr_signbit(exact) != 0)
{
    if (mpfr_nan_p(exact)) {
        kind_ = nan;
        return;
    }
    nearest_ = format.digits == 24   ? static_cast<long double>(mpfr_get_flt(exact, MPFR_RNDN))
               : format.digits == 64 ? mpfr_get_ld(exact, MPFR_RNDN)
                                     : static_cast<long double>(mpfr_get_d(exact, MPFR_RNDN));
    if (mpfr_inf_p(exact)) {
        kind_ = infinite;
        return;
    }
    if (mpfr_zero_p(exact)) return;
    kind_ = number;
    // Beyond the format as far as the exponent's own value no longer matters.
    constexpr int far = 64;
    exponent_ = static_cast<int>(std::clamp<mpfr_exp_t>(
        mpfr_get_exp(exact), format.min_exponent - format.digits - far, format.max_exponent + far));
    is_subnormal_ = exponent_ < format.min_exponent && !format.is_integer;
    overflows_ = std::isinf(nearest_);
    thread_local Exact scaled(precision_of(extended80));
    mpfr_mul_2si(scaled.value, exact, -mpfr_get_exp(exact), MPFR_RNDN);
    high_ = mpfr_get_ld(scaled.value, MPFR_RNDN);
    thread_local Exact high(64);
    mpfr_set_ld(high.value, high_, MPFR_RNDN);
    mpfr_sub(scaled.value, scaled.value, high.value, MPFR_RNDN);
    low_ = mpfr_get_ld(scaled.value, MPFR_RNDN);
}

Judgement Reference::judge(long double got, const Format& format, bool to_nearest) const
{
    const bool sign_differs = std::signbit(got) != is_negative_;
    if (kind_ == nan || std::isnan(got)) return {0, (kind_ == nan) != std::isnan(got)};
    if (kind_ == infinite) return {0, !std::isinf(got) || sign_differs};
    if (kind_ == zero && got == 0) return {0, sign_differs && !format.is_integer};
    if (overflows_) {
        return {0, sign_differs || std::fabs(got) < (to_nearest ? HUGE_VALL : largest(format))};
    }
    if (std::isinf(got)) {
        // Rounded up from the last binade's end; any other infinity is none of rounding's.
        const bool may_round_up = !to_nearest && !sign_differs && std::fabs(nearest_) == largest(format);
        return {0, !may_round_up};
    }
    // got in units of 2^exponent, exact but where the difference is beyond all measure anyway.
    int got_exponent = 0;
    const long double fraction = std::frexp(got, &got_exponent);
    const long double scaled = std::ldexp(fraction, std::clamp(got_exponent - exponent_, -900, 900));
    const long double difference = std::fabs((scaled - high_) - low_);
    const int ulp_exponent = std::max(exponent_, format.min_exponent) - format.digits;
    return {static_cast<double>(std::ldexp(difference, exponent_ - ulp_exponent)), false};
}

} // namespace zelk::accuracy
