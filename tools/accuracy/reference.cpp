#include "reference.h"

#include "exact.h"

#include <algorithm>
#include <cmath>

namespace zelk::accuracy {

Reference::Reference(mpfr_srcptr exact, const Format& format) : is_negative_(mpfr_signbit(exact) != 0)
{
    if (mpfr_nan_p(exact)) {
        kind_ = nan;
        return;
    }
    nearest_ = format.digits == 24 ? static_cast<double>(mpfr_get_flt(exact, MPFR_RNDN))
                                   : mpfr_get_d(exact, MPFR_RNDN);
    if (mpfr_inf_p(exact)) {
        kind_ = infinite;
        return;
    }
    if (mpfr_zero_p(exact)) return;
    kind_ = number;
    // Far beyond the format, so that the exponent's own value no longer matters.
    exponent_ = static_cast<int>(std::clamp<mpfr_exp_t>(mpfr_get_exp(exact), -5000, 5000));
    is_subnormal_ = exponent_ < format.min_exponent && !format.is_integer;
    overflows_ = std::isinf(nearest_);
    thread_local Exact scaled(precision_of(binary64));
    mpfr_mul_2si(scaled.value, exact, -mpfr_get_exp(exact), MPFR_RNDN);
    high_ = mpfr_get_d(scaled.value, MPFR_RNDN);
    mpfr_sub_d(scaled.value, scaled.value, high_, MPFR_RNDN);
    low_ = mpfr_get_d(scaled.value, MPFR_RNDN);
}

Judgement Reference::judge(double got, const Format& format, bool to_nearest) const
{
    const bool sign_differs = std::signbit(got) != is_negative_;
    if (kind_ == nan || std::isnan(got)) return {0, (kind_ == nan) != std::isnan(got)};
    if (kind_ == infinite) return {0, !std::isinf(got) || sign_differs};
    if (kind_ == zero && got == 0) return {0, sign_differs && !format.is_integer};
    if (overflows_) {
        const double largest = std::ldexp(1 - std::ldexp(1.0, -format.digits), format.max_exponent);
        return {0, sign_differs || std::fabs(got) < (to_nearest ? HUGE_VAL : largest)};
    }
    if (std::isinf(got)) {
        // Rounded up from the last binade's end; any other infinity is none of rounding's.
        const bool may_round_up =
            !to_nearest && !sign_differs &&
            std::fabs(nearest_) == std::ldexp(1 - std::ldexp(1.0, -format.digits), format.max_exponent);
        return {0, !may_round_up};
    }
    // got in units of 2^exponent, exact but where the difference is beyond all measure anyway.
    int got_exponent = 0;
    const double fraction = std::frexp(got, &got_exponent);
    const double scaled = std::ldexp(fraction, std::clamp(got_exponent - exponent_, -900, 900));
    const double difference = std::fabs((scaled - high_) - low_);
    const int ulp_exponent = std::max(exponent_, format.min_exponent) - format.digits;
    return {std::ldexp(difference, exponent_ - ulp_exponent), false};
}

} // namespace zelk::accuracy
