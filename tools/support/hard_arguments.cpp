#include "hard_arguments.h"

#include <mpfr.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace zelk {

namespace {

// 2/pi with enough bits for the largest 80-bit number.
class TwoOverPi {
public:
    TwoOverPi()
    {
        mpfr_init2(value, 16800);
        mpfr_const_pi(value, MPFR_RNDN);
        mpfr_ui_div(value, 2, value, MPFR_RNDN);
    }
    ~TwoOverPi() { mpfr_clear(value); }
    TwoOverPi(const TwoOverPi&) = delete;
    TwoOverPi& operator=(const TwoOverPi&) = delete;
    mpfr_t value;
};

// x = q 2^e comes near to p pi/2 where p/q comes near to 2^e 2/pi: the convergents of its continued fraction
// come nearest among all q up to theirs. The last two whose q has at most T's digits.
template <class T>
void append_convergents(std::vector<T>& arguments, mpfr_srcptr two_over_pi, int e)
{
    constexpr std::uint64_t most = ~std::uint64_t{0} >> (64 - std::numeric_limits<T>::digits);
    mpfr_t scaled;
    mpfr_t rest;
    mpfr_t quotient;
    mpfr_init2(scaled, 16800);
    mpfr_init2(rest, 300);
    mpfr_init2(quotient, 300);
    mpfr_mul_2si(scaled, two_over_pi, e, MPFR_RNDN);
    mpfr_frac(rest, scaled, MPFR_RNDN); // q times an integer is a multiple that does not matter
    std::uint64_t q_before = 0;
    std::uint64_t q = 1;
    for (;;) {
        mpfr_ui_div(rest, 1, rest, MPFR_RNDN);
        mpfr_floor(quotient, rest);
        if (mpfr_cmp_d(quotient, 0x1p63) >= 0) break;
        const auto factor = static_cast<std::uint64_t>(mpfr_get_d(quotient, MPFR_RNDZ));
        if (factor > (most - q_before) / q) break;
        const std::uint64_t q_next = factor * q + q_before;
        q_before = q;
        q = q_next;
        mpfr_sub(rest, rest, quotient, MPFR_RNDN);
    }
    mpfr_clear(scaled);
    mpfr_clear(rest);
    mpfr_clear(quotient);
    for (const std::uint64_t denominator : {q_before, q})
        if (denominator != 0) arguments.push_back(std::ldexp(static_cast<T>(denominator), e));
}

template <class T>
std::vector<T> all_exponents(int step = 1)
{
    using Limits = std::numeric_limits<T>;
    const TwoOverPi two_over_pi;
    std::vector<T> arguments;
    for (int e = 1 - Limits::digits; e <= Limits::max_exponent - Limits::digits; e += step)
        append_convergents(arguments, two_over_pi.value, e);
    return arguments;
}

} // namespace

std::vector<float> near_multiples_of_half_pi_f()
{
    return all_exponents<float>();
}
std::vector<double> near_multiples_of_half_pi()
{
    return all_exponents<double>();
}
std::vector<long double> near_multiples_of_half_pi_l(int step)
{
    return all_exponents<long double>(step);
}

} // namespace zelk
