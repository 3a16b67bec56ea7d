#include "hard_arguments.h"

#include <mpfr.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace zelk::test {

namespace {

// x = q 2^e comes near to p pi/2 where p/q comes near to 2^e 2/pi: the convergents of its continued fraction
// come nearest among all q up to theirs. The last two whose q has at most T's digits.
template <class T>
void append_convergents(std::vector<T>& arguments, int e)
{
    constexpr auto limit = std::uint64_t{1} << std::numeric_limits<T>::digits;
    mpfr_t rest;
    mpfr_t quotient;
    mpfr_init2(rest, 1400);
    mpfr_init2(quotient, 1400);
    mpfr_const_pi(rest, MPFR_RNDN);
    mpfr_ui_div(rest, 2, rest, MPFR_RNDN);
    mpfr_mul_2si(rest, rest, e, MPFR_RNDN);
    mpfr_frac(rest, rest, MPFR_RNDN); // q times an integer is a multiple that does not matter
    std::uint64_t q_before = 0;
    std::uint64_t q = 1;
    for (;;) {
        mpfr_ui_div(rest, 1, rest, MPFR_RNDN);
        mpfr_floor(quotient, rest);
        const double factor = mpfr_get_d(quotient, MPFR_RNDZ);
        if (factor >= static_cast<double>(limit)) break;
        const std::uint64_t q_next = static_cast<std::uint64_t>(factor) * q + q_before;
        if (q_next >= limit) break;
        q_before = q;
        q = q_next;
        mpfr_sub(rest, rest, quotient, MPFR_RNDN);
    }
    mpfr_clear(rest);
    mpfr_clear(quotient);
    for (const std::uint64_t denominator : {q_before, q})
        if (denominator != 0) arguments.push_back(std::ldexp(static_cast<T>(denominator), e));
}

template <class T>
std::vector<T> all_exponents()
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> arguments;
    for (int e = 1 - Limits::digits; e <= Limits::max_exponent - Limits::digits; ++e)
        append_convergents(arguments, e);
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

} // namespace zelk::test
