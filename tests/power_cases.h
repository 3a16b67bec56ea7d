// What the tests of both powers share: special values, arguments and the errors of the directed rounding
// modes.
#pragma once

#include "oracle.h"
#include "special_lanes.h"

#include <cmath>
#include <limits>

namespace zelk::test {

template <class T>
inline constexpr T infinity = std::numeric_limits<T>::infinity();
template <class T>
inline constexpr T largest = std::numeric_limits<T>::max();
template <class T>
inline constexpr T smallest = std::numeric_limits<T>::denorm_min();
template <class T>
inline constexpr T quiet_nan = std::numeric_limits<T>::quiet_NaN();
template <class T>
inline constexpr T above_1 = 1 + std::numeric_limits<T>::epsilon();
template <class T>
inline constexpr T below_1 = 1 - std::numeric_limits<T>::epsilon() / 2;
template <class T>
inline constexpr T signalling_nan = signalling_nan_f;
template <>
inline constexpr double signalling_nan<double> = signalling_nan_d;

// What holds for x^y in every format and every rounding mode.
template <class T>
inline constexpr Special<T> power_specials[] = {
    {"+0^-1", 0.0, infinity<T>, flag_divide_by_zero, -1.0},
    {"+0^-2.5", 0.0, infinity<T>, flag_divide_by_zero, -2.5},
    {"+0^-smallest", 0.0, infinity<T>, flag_divide_by_zero, -smallest<T>},
    {"+0^-inf", 0.0, infinity<T>, flag_divide_by_zero, -infinity<T>},
    {"-0^-1", -0.0, -infinity<T>, flag_divide_by_zero, -1.0},
    {"-0^-2", -0.0, infinity<T>, flag_divide_by_zero, -2.0},
    {"-0^-0.5", -0.0, infinity<T>, flag_divide_by_zero, -0.5},
    {"-0^-inf", -0.0, infinity<T>, flag_divide_by_zero, -infinity<T>},
    {"+0^3", 0.0, 0.0, 0, 3.0},
    {"+0^smallest", 0.0, 0.0, 0, smallest<T>},
    {"+0^largest", 0.0, 0.0, 0, largest<T>},
    {"+0^+inf", 0.0, 0.0, 0, infinity<T>},
    {"-0^3", -0.0, -0.0, 0, 3.0},
    {"-0^2", -0.0, 0.0, 0, 2.0},
    {"-0^0.5", -0.0, 0.0, 0, 0.5},
    {"-0^+inf", -0.0, 0.0, 0, infinity<T>},
    {"+0^0", 0.0, 1.0, 0, 0.0},
    {"-0^-0", -0.0, 1.0, 0, -0.0},
    {"-2^0", -2.0, 1.0, 0, 0.0},
    {"+inf^0", infinity<T>, 1.0, 0, 0.0},
    {"-inf^-0", -infinity<T>, 1.0, 0, -0.0},
    {"NaN^0", quiet_nan<T>, 1.0, 0, 0.0},
    {"-NaN^-0", -quiet_nan<T>, 1.0, 0, -0.0},
    {"signalling NaN^0", signalling_nan<T>, 1.0, 0, 0.0},
    {"1^NaN", 1.0, 1.0, 0, quiet_nan<T>},
    {"1^signalling NaN", 1.0, 1.0, 0, signalling_nan<T>},
    {"1^+inf", 1.0, 1.0, 0, infinity<T>},
    {"1^-inf", 1.0, 1.0, 0, -infinity<T>},
    {"-1^+inf", -1.0, 1.0, 0, infinity<T>},
    {"-1^-inf", -1.0, 1.0, 0, -infinity<T>},
    {"NaN^1", quiet_nan<T>, quiet_nan<T>, 0, 1.0},
    {"-NaN^1", -quiet_nan<T>, quiet_nan<T>, 0, 1.0},
    {"NaN^inf", quiet_nan<T>, quiet_nan<T>, 0, infinity<T>},
    {"2^NaN", 2.0, quiet_nan<T>, 0, quiet_nan<T>},
    {"0^NaN", 0.0, quiet_nan<T>, 0, quiet_nan<T>},
    {"-1^NaN", -1.0, quiet_nan<T>, 0, quiet_nan<T>},
    {"inf^NaN", infinity<T>, quiet_nan<T>, 0, quiet_nan<T>},
    {"2^+inf", 2.0, infinity<T>, 0, infinity<T>},
    {"2^-inf", 2.0, 0.0, 0, -infinity<T>},
    {"0.5^+inf", 0.5, 0.0, 0, infinity<T>},
    {"0.5^-inf", 0.5, infinity<T>, 0, -infinity<T>},
    {"just above 1^+inf", above_1<T>, infinity<T>, 0, infinity<T>},
    {"just below 1^+inf", below_1<T>, 0.0, 0, infinity<T>},
    {"-2^+inf", -2.0, infinity<T>, 0, infinity<T>},
    {"-2^-inf", -2.0, 0.0, 0, -infinity<T>},
    {"-0.5^-inf", -0.5, infinity<T>, 0, -infinity<T>},
    {"smallest^-inf", smallest<T>, infinity<T>, 0, -infinity<T>},
    {"-smallest^+inf", -smallest<T>, 0.0, 0, infinity<T>},
    {"inf^2", infinity<T>, infinity<T>, 0, 2.0},
    {"inf^smallest", infinity<T>, infinity<T>, 0, smallest<T>},
    {"inf^-0.5", infinity<T>, 0.0, 0, -0.5},
    {"inf^inf", infinity<T>, infinity<T>, 0, infinity<T>},
    {"inf^-inf", infinity<T>, 0.0, 0, -infinity<T>},
    {"-inf^3", -infinity<T>, -infinity<T>, 0, 3.0},
    {"-inf^2", -infinity<T>, infinity<T>, 0, 2.0},
    {"-inf^0.5", -infinity<T>, infinity<T>, 0, 0.5},
    {"-inf^-3", -infinity<T>, -0.0, 0, -3.0},
    {"-inf^-2", -infinity<T>, 0.0, 0, -2.0},
    {"-inf^inf", -infinity<T>, infinity<T>, 0, infinity<T>},
    {"-inf^-inf", -infinity<T>, 0.0, 0, -infinity<T>},
    {"-2^0.5", -2.0, quiet_nan<T>, flag_invalid, 0.5},
    {"-2^-1.5", -2.0, quiet_nan<T>, flag_invalid, -1.5},
    {"-1^smallest", -1.0, quiet_nan<T>, flag_invalid, smallest<T>},
    {"-smallest^0.5", -smallest<T>, quiet_nan<T>, flag_invalid, 0.5},
    {"largest^largest", largest<T>, infinity<T>, 0, largest<T>},
    {"smallest^largest", smallest<T>, 0.0, 0, largest<T>},
};

template <class T>
struct PowerArguments {
    std::vector<T> x;
    std::vector<T> y;
};

// x from one range, y so that y log2|x| falls into another.
template <class T>
PowerArguments<T> power_arguments(T x_from, T x_to, double w_from, double w_to, std::size_t count)
{
    PowerArguments<T> result;
    const auto w = sample_interval(w_from, w_to, count, 2);
    std::size_t i = 0;
    for (const T x : sample_patterns(x_from, x_to, count)) {
        const double y = w[i++] / std::log2(static_cast<double>(x));
        if (!(std::fabs(y) <= static_cast<double>(largest<T>))) continue;
        result.x.push_back(x);
        result.y.push_back(static_cast<T>(y));
    }
    return result;
}

// The same with negative x and integer y.
template <class T>
PowerArguments<T> negative_bases(T x_from, T x_to, double w_from, double w_to, std::size_t count)
{
    PowerArguments<T> result = power_arguments(x_from, x_to, w_from, w_to, count);
    for (T& x : result.x)
        x = -x;
    for (T& y : result.y)
        y = std::trunc(y);
    return result;
}

inline Vec128 all_lanes(float x)
{
    return floats(x, x, x, x);
}
inline Vec128 all_lanes(double x)
{
    return doubles(x, x);
}
inline float first_lane(const Vec128& v, float)
{
    return v.f[0];
}
inline double first_lane(const Vec128& v, double)
{
    return v.d[0];
}

// Fails if an error in round down, up or towards zero is above the bound; prints what was measured.
template <class T>
void expect_directed_error_within(double bound, const Kernel& kernel, const PowerArguments<T>& arguments,
                                  const std::string& path)
{
    Exact x;
    Exact y;
    Exact power;
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero}) {
        Worst worst;
        for (std::size_t i = 0; i < arguments.x.size(); ++i) {
            const T xi = arguments.x[i];
            const T yi = arguments.y[i];
            const Result result = call(kernel.address, all_lanes(xi), all_lanes(yi), {}, nullptr, rounding);
            mpfr_set_d(x.value, static_cast<double>(xi), MPFR_RNDN);
            mpfr_set_d(y.value, static_cast<double>(yi), MPFR_RNDN);
            mpfr_pow(power.value, x.value, y.value, MPFR_RNDN);
            const T got = first_lane(result.first, T{});
            const double error = ulp_error(got, power.value);
            if (error > worst.ulp)
                worst = {error, static_cast<double>(xi), static_cast<double>(yi), static_cast<double>(got),
                         rounding};
        }
        expect_error_within(bound, worst, kernel.symbol,
                            path + ", rounding " + std::to_string(static_cast<unsigned>(rounding)));
    }
}

} // namespace zelk::test
