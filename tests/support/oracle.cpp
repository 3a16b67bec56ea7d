#include "oracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace zelk::test {

Unary mpfr_unary(int (*function)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t))
{
    return [function](mpfr_ptr result, mpfr_srcptr x) { function(result, x, MPFR_RNDN); };
}

Binary mpfr_binary(int (*function)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t))
{
    return [function](mpfr_ptr result, mpfr_srcptr x, mpfr_srcptr y) { function(result, x, y, MPFR_RNDN); };
}

namespace {

template <class T>
double ulp_error_of(T got, mpfr_srcptr exact)
{
    constexpr double wrong = std::numeric_limits<double>::infinity();
    using Limits = std::numeric_limits<T>;
    if (mpfr_nan_p(exact)) return std::isnan(got) ? 0 : wrong;
    if (std::isnan(got)) return wrong;
    // An exact value that rounds to an infinity must give that infinity.
    Exact rounded;
    mpfr_set_prec(rounded.value, Limits::digits);
    mpfr_set(rounded.value, exact, MPFR_RNDN);
    const bool overflows = mpfr_inf_p(exact) || (mpfr_regular_p(rounded.value) &&
                                                 mpfr_get_exp(rounded.value) > Limits::max_exponent);
    if (overflows || std::isinf(got)) {
        if (!std::isinf(got) || std::signbit(got) != (mpfr_signbit(exact) != 0)) return wrong;
        return overflows ? 0 : wrong;
    }
    if (mpfr_zero_p(exact)) return got == 0 && std::signbit(got) == (mpfr_signbit(exact) != 0) ? 0 : wrong;

    Exact difference;
    if constexpr (sizeof(T) > sizeof(double))
        mpfr_set_ld(difference.value, got, MPFR_RNDN);
    else
        mpfr_set_d(difference.value, static_cast<double>(got), MPFR_RNDN);
    mpfr_sub(difference.value, difference.value, exact, MPFR_RNDN);
    const mpfr_exp_t ulp_exponent =
        std::max<mpfr_exp_t>(mpfr_get_exp(exact), Limits::min_exponent) - Limits::digits;
    mpfr_mul_2si(difference.value, difference.value, -ulp_exponent, MPFR_RNDN);
    return std::fabs(mpfr_get_d(difference.value, MPFR_RNDN));
}

template <class T>
constexpr std::size_t lane_count = 16 / sizeof(T);

Vec128 gather(std::span<const float> xs, std::size_t first)
{
    Vec128 v;
    for (std::size_t lane = 0; lane < 4; ++lane)
        v.f[lane] = xs[std::min(first + lane, xs.size() - 1)];
    return v;
}
Vec128 gather(std::span<const double> xs, std::size_t first)
{
    Vec128 v;
    for (std::size_t lane = 0; lane < 2; ++lane)
        v.d[lane] = xs[std::min(first + lane, xs.size() - 1)];
    return v;
}
float lane_of(const Vec128& v, std::size_t lane, float)
{
    return v.f[lane];
}
double lane_of(const Vec128& v, std::size_t lane, double)
{
    return v.d[lane];
}

template <class T, class Evaluate>
Worst search(const void* kernel, std::span<const T> xs, std::span<const T> ys, bool second, Rounding rounding,
             Evaluate evaluate)
{
    Worst worst;
    worst.rounding = rounding;
    Vec128 stored; // for kernels that store their second result too
    for (std::size_t i = 0; i < xs.size(); i += lane_count<T>) {
        const Vec128 b = ys.empty() ? Vec128{} : gather(ys, i);
        const Result result = call(kernel, gather(xs, i), b, {}, &stored, rounding);
        for (std::size_t lane = 0; lane < std::min(lane_count<T>, xs.size() - i); ++lane) {
            const T got = lane_of(second ? result.second : result.first, lane, T{});
            const double error = ulp_error(got, evaluate(i + lane));
            if (!(error > worst.ulp)) continue;
            worst = {error, static_cast<double>(xs[i + lane]),
                     ys.empty() ? 0.0 : static_cast<double>(ys[i + lane]), static_cast<double>(got),
                     rounding};
        }
    }
    return worst;
}

template <class T>
Worst search_unary(const void* kernel, std::span<const T> xs, bool second, const Unary& exact,
                   Rounding rounding = Rounding::nearest)
{
    Exact x;
    Exact value;
    return search<T>(kernel, xs, {}, second, rounding, [&](std::size_t i) -> mpfr_srcptr {
        mpfr_set_d(x.value, static_cast<double>(xs[i]), MPFR_RNDN);
        exact(value.value, x.value);
        return value.value;
    });
}

template <class T>
Worst search_binary(const void* kernel, std::span<const T> xs, std::span<const T> ys, const Binary& exact)
{
    Exact x;
    Exact y;
    Exact value;
    return search<T>(kernel, xs, ys, false, Rounding::nearest, [&](std::size_t i) -> mpfr_srcptr {
        mpfr_set_d(x.value, static_cast<double>(xs[i]), MPFR_RNDN);
        mpfr_set_d(y.value, static_cast<double>(ys[i]), MPFR_RNDN);
        exact(value.value, x.value, y.value);
        return value.value;
    });
}

template <class T>
double search_absolute(const void* kernel, std::span<const T> xs, const Unary& exact, Rounding rounding,
                       bool second)
{
    double worst = 0;
    Exact value;
    Vec128 stored; // for kernels that store their second result too
    for (std::size_t i = 0; i < xs.size(); i += lane_count<T>) {
        const Result result = call(kernel, gather(xs, i), {}, {}, &stored, rounding);
        for (std::size_t lane = 0; lane < std::min(lane_count<T>, xs.size() - i); ++lane) {
            const T got = lane_of(second ? result.second : result.first, lane, T{});
            mpfr_set_d(value.value, static_cast<double>(xs[i + lane]), MPFR_RNDN);
            exact(value.value, value.value);
            mpfr_sub_d(value.value, value.value, static_cast<double>(got), MPFR_RNDN);
            const double error = std::fabs(mpfr_get_d(value.value, MPFR_RNDU));
            if (!(error <= worst)) worst = error;
        }
    }
    return worst;
}

// Bit patterns in the order of the numbers they stand for.
std::int64_t ordinal(float x)
{
    const auto bits = std::bit_cast<std::int32_t>(x);
    return bits < 0 ? -std::int64_t{bits & 0x7FFFFFFF} : bits;
}
std::int64_t ordinal(double x)
{
    const auto bits = std::bit_cast<std::int64_t>(x);
    return bits < 0 ? -(bits & INT64_MAX) : bits;
}
float from_ordinal(std::int64_t n, float)
{
    const auto magnitude = static_cast<std::uint32_t>(n < 0 ? -n : n);
    return std::bit_cast<float>(magnitude | (n < 0 ? 0x80000000u : 0u));
}
double from_ordinal(std::int64_t n, double)
{
    const auto magnitude = static_cast<std::uint64_t>(n < 0 ? -n : n);
    return std::bit_cast<double>(magnitude | (n < 0 ? std::uint64_t{1} << 63 : 0u));
}

template <class T>
std::vector<T> pattern_sample(T from, T to, std::size_t count, std::uint64_t seed)
{
    Random random(seed);
    const std::int64_t low = std::min(ordinal(from), ordinal(to));
    const std::int64_t high = std::max(ordinal(from), ordinal(to));
    const std::uint64_t width = static_cast<std::uint64_t>(high - low) + 1;
    std::vector<T> sample = {from, to};
    for (std::size_t i = 0; i < scaled(count); ++i)
        sample.push_back(from_ordinal(low + static_cast<std::int64_t>(random.next() % width), T{}));
    return sample;
}

template <class T>
std::vector<T> interval_sample(T from, T to, std::size_t count, std::uint64_t seed)
{
    Random random(seed);
    std::vector<T> sample = {from, to};
    for (std::size_t i = 0; i < scaled(count); ++i) {
        const double unit = static_cast<double>(random.next() >> 11) * 0x1p-53;
        sample.push_back(
            static_cast<T>(static_cast<double>(from) * (1 - unit) + static_cast<double>(to) * unit));
    }
    return sample;
}

template <class T>
std::vector<T> around(T x, int radius)
{
    std::vector<T> sample;
    for (int i = -radius; i <= radius; ++i)
        sample.push_back(from_ordinal(ordinal(x) + i, T{}));
    return sample;
}

bool is_lane_loop(const std::string& symbol)
{
    if (!symbol.ends_with(".A")) return false;
    for (const Entry& entry : entries())
        for (const Kernel& kernel : entry.kernels)
            if (kernel.symbol == symbol) return kernel.lane_loop;
    return false;
}

template <class T>
void expect_directed(double bound_ulp, const Kernel& kernel, std::span<const T> xs, const Unary& exact)
{
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero})
        expect_error_within(bound_ulp, worst_error(kernel.address, xs, exact, rounding), kernel.symbol,
                            "rounding " + std::to_string(static_cast<unsigned>(rounding)));
}

} // namespace

double ulp_error(float got, mpfr_srcptr exact)
{
    return ulp_error_of(got, exact);
}
double ulp_error(double got, mpfr_srcptr exact)
{
    return ulp_error_of(got, exact);
}
double ulp_error(long double got, mpfr_srcptr exact)
{
    return ulp_error_of(got, exact);
}

std::string Worst::text() const
{
    char buffer[160];
    std::snprintf(buffer, sizeof buffer, "%.4f ulp at x = %a, y = %a (got %a)", ulp, x, y, got);
    return buffer;
}

void expect_error_within(double bound_ulp, const Worst& worst, const std::string& kernel,
                         const std::string& path)
{
    if (is_lane_loop(kernel))
        bound_ulp = std::min(bound_ulp, worst.rounding == Rounding::nearest ? 0.501 : 1.001);
    std::printf("[ MEASURED ] %s, %s: %s\n", kernel.c_str(), path.c_str(), worst.text().c_str());
    EXPECT_LE(worst.ulp, bound_ulp) << kernel << ", " << path << ": " << worst.text();
}

void expect_directed_error_within(double bound_ulp, const Kernel& kernel, std::span<const float> xs,
                                  const Unary& exact)
{
    expect_directed(bound_ulp, kernel, xs, exact);
}
void expect_directed_error_within(double bound_ulp, const Kernel& kernel, std::span<const double> xs,
                                  const Unary& exact)
{
    expect_directed(bound_ulp, kernel, xs, exact);
}

Worst worst_error(const void* kernel, std::span<const float> xs, const Unary& exact, Rounding rounding)
{
    return search_unary(kernel, xs, false, exact, rounding);
}
Worst worst_error(const void* kernel, std::span<const double> xs, const Unary& exact, Rounding rounding)
{
    return search_unary(kernel, xs, false, exact, rounding);
}
double worst_absolute_error(const void* kernel, std::span<const float> xs, const Unary& exact,
                            Rounding rounding, bool second)
{
    return search_absolute(kernel, xs, exact, rounding, second);
}
double worst_absolute_error(const void* kernel, std::span<const double> xs, const Unary& exact,
                            Rounding rounding, bool second)
{
    return search_absolute(kernel, xs, exact, rounding, second);
}
Worst worst_error_second(const void* kernel, std::span<const float> xs, const Unary& exact)
{
    return search_unary(kernel, xs, true, exact);
}
Worst worst_error_second(const void* kernel, std::span<const double> xs, const Unary& exact)
{
    return search_unary(kernel, xs, true, exact);
}
Worst worst_error(const void* kernel, std::span<const float> xs, std::span<const float> ys,
                  const Binary& exact)
{
    return search_binary(kernel, xs, ys, exact);
}
Worst worst_error(const void* kernel, std::span<const double> xs, std::span<const double> ys,
                  const Binary& exact)
{
    return search_binary(kernel, xs, ys, exact);
}

std::size_t scaled(std::size_t count)
{
    static const char* const factor = std::getenv("ZELK_SURVEY");
    return factor ? static_cast<std::size_t>(static_cast<double>(count) * std::atof(factor)) : count;
}

std::vector<float> sample_patterns(float from, float to, std::size_t count, std::uint64_t seed)
{
    return pattern_sample(from, to, count, seed);
}
std::vector<double> sample_patterns(double from, double to, std::size_t count, std::uint64_t seed)
{
    return pattern_sample(from, to, count, seed);
}
std::vector<float> sample_interval(float from, float to, std::size_t count, std::uint64_t seed)
{
    return interval_sample(from, to, count, seed);
}
std::vector<double> sample_interval(double from, double to, std::size_t count, std::uint64_t seed)
{
    return interval_sample(from, to, count, seed);
}
std::vector<float> neighbours(float x, int radius)
{
    return around(x, radius);
}
std::vector<double> neighbours(double x, int radius)
{
    return around(x, radius);
}

} // namespace zelk::test
