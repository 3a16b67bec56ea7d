// The exact value of a result, in a form against which many results are judged quickly.
#pragma once

#include <mpfr.h>

namespace zelk::accuracy {

// A number format: its significand bits and the exponents of its normal numbers, which are 2^(exponent-1) to
// 2^exponent. For integers the unit is 1 throughout.
struct Format {
    int digits;
    int min_exponent;
    int max_exponent;
    bool is_integer = false;
};
inline constexpr Format binary32{24, -125, 128};
inline constexpr Format binary64{53, -1021, 1024};
inline constexpr Format extended80{64, -16381, 16384};
inline constexpr Format integer32{32, 32, 64, true};

// Precision in which exact values are asked for: 48 bits and more beyond the format.
inline constexpr mpfr_prec_t precision_of(const Format& format)
{
    return format.digits == 64 ? 128 : format.digits == 53 ? 112 : 72;
}

struct Judgement {
    double ulp = 0;
    bool is_wrong = false; // a NaN, an infinity or a zero's sign that is not the exact result's
};

class Reference {
public:
    Reference() = default;
    // A value of precision_of(format) bits that the function's exact value rounds to.
    Reference(mpfr_srcptr exact, const Format& format);

    // |got - exact| over the ulp of the exact value's binade, which below the smallest normal number is that
    // of the subnormals. NaNs, infinities and zeros are right or wrong and have no error in ulp. Where the
    // exact value is beyond the largest number, directed rounding may give that number.
    Judgement judge(long double got, const Format& format, bool to_nearest) const;
    bool is_rounded_correctly(long double got) const
    {
        return got == nearest_ || (got != got && kind_ == nan);
    }
    bool is_subnormal() const { return is_subnormal_; }
    bool is_number() const { return kind_ == number; }

private:
    enum Kind { zero, number, infinite, nan };
    Kind kind_ = zero;
    bool is_negative_ = false;
    bool is_subnormal_ = false;
    bool overflows_ = false;
    int exponent_ = 0; // |value| is from 2^(exponent-1) to 2^exponent, and (high + low) 2^exponent
    long double high_ = 0;
    long double low_ = 0;
    long double nearest_ = 0; // rounded to nearest
};

} // namespace zelk::accuracy
