#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace zelk::test {

namespace {

const Bits80& chosen(const ScalarResult& result, int which)
{
    return which < 0 ? result.extended : result.stored[which];
}

template <class T, class Evaluate>
WorstScalar search(const ScalarKernel& kernel, std::span<const T> xs, std::span<const T> ys, int which,
                   const Environment& environment, Evaluate evaluate)
{
    WorstScalar worst;
    for (std::size_t i = 0; i < xs.size(); ++i) {
        const T y = ys.empty() ? T{} : ys[i];
        const ScalarResult result = call_scalar(kernel, xs[i], y, environment);
        T got;
        if constexpr (sizeof(T) > sizeof(double))
            got = number(chosen(result, which));
        else
            got = result.value_d();
        const double error = ulp_error(got, evaluate(xs[i], y));
        if (error > worst.ulp) worst = {error, xs[i], y, got};
    }
    return worst;
}

template <class T>
WorstScalar search_unary(const ScalarKernel& kernel, std::span<const T> xs, const Unary& exact, int which,
                         const Environment& environment)
{
    Exact x;
    Exact value;
    return search<T>(kernel, xs, {}, which, environment, [&](const T& argument, const T&) -> mpfr_srcptr {
        mpfr_set_ld(x.value, argument, MPFR_RNDN);
        exact(value.value, x.value);
        return value.value;
    });
}

template <class T>
WorstScalar search_binary(const ScalarKernel& kernel, std::span<const T> xs, std::span<const T> ys,
                          const Binary& exact, int which, const Environment& environment)
{
    Exact x;
    Exact y;
    Exact value;
    return search<T>(kernel, xs, ys, which, environment, [&](const T& a, const T& b) -> mpfr_srcptr {
        mpfr_set_ld(x.value, a, MPFR_RNDN);
        mpfr_set_ld(y.value, b, MPFR_RNDN);
        exact(value.value, x.value, y.value);
        return value.value;
    });
}

} // namespace

std::string WorstScalar::text() const
{
    char buffer[200];
    std::snprintf(buffer, sizeof buffer, "%.4f ulp at x = %La, y = %La (got %La)", ulp, x, y, got);
    return buffer;
}

WorstScalar worst_error(const ScalarKernel& kernel, std::span<const long double> xs, const Unary& exact,
                        int result, const Environment& environment)
{
    return search_unary(kernel, xs, exact, result, environment);
}
WorstScalar worst_error(const ScalarKernel& kernel, std::span<const double> xs, const Unary& exact,
                        const Environment& environment)
{
    return search_unary(kernel, xs, exact, -1, environment);
}
WorstScalar worst_error(const ScalarKernel& kernel, std::span<const long double> xs,
                        std::span<const long double> ys, const Binary& exact, int result,
                        const Environment& environment)
{
    return search_binary(kernel, xs, ys, exact, result, environment);
}
WorstScalar worst_error(const ScalarKernel& kernel, std::span<const double> xs, std::span<const double> ys,
                        const Binary& exact, const Environment& environment)
{
    return search_binary(kernel, xs, ys, exact, -1, environment);
}

void expect_error_within(double bound_ulp, const WorstScalar& worst, const std::string& kernel,
                         const std::string& path)
{
    std::printf("[ MEASURED ] %s, %s: %s\n", kernel.c_str(), path.c_str(), worst.text().c_str());
    EXPECT_LE(worst.ulp, bound_ulp) << kernel << ", " << path << ": " << worst.text();
}

void expect_errors_within(double bound_ulp, const char* name, const Unary& exact,
                          std::span<const long double> xs, const char* path, int result)
{
    expect_error_within(bound_ulp, worst_error(scalar_kernel(name), xs, exact, result), name, path);
}

void expect_errors_in_directed_modes(double bound_ulp, const char* name, const Unary& exact,
                                     std::span<const long double> xs, int result)
{
    for (const auto& [rounding, path] :
         {std::pair{Rounding::down, "rounding down"}, std::pair{Rounding::up, "rounding up"},
          std::pair{Rounding::zero, "rounding to zero"}})
        expect_error_within(bound_ulp, worst_error(scalar_kernel(name), xs, exact, result, {rounding}), name,
                            path);
}

std::vector<long double> sample_binades(int from, int to, std::size_t count, std::uint64_t seed)
{
    Random random(seed);
    std::vector<long double> sample;
    const auto binades = static_cast<std::size_t>(to - from) + 1;
    const std::size_t total = scaled(count);
    for (std::size_t i = 0; i < total; ++i) {
        // Fewer arguments than binades: spread over them; more: every binade gets its share.
        const int exponent = from + static_cast<int>(total < binades ? i * binades / total : i % binades);
        std::uint64_t significand = random.next() | integer_bit;
        const unsigned shape = random.next() % 16;
        if (shape == 0) significand &= ~std::uint64_t{0} << (random.next() % 64);
        if (shape == 1) significand = ~(significand >> (1 + random.next() % 63));
        const int below = std::max(0, -16382 - exponent); // bits that a denormal does not have
        const auto biased = static_cast<std::uint16_t>(std::max(0, exponent + 16383));
        sample.push_back(number({(significand | integer_bit) >> below, biased}));
    }
    return sample;
}

std::vector<long double> sample_interval(long double from, long double to, std::size_t count,
                                         std::uint64_t seed)
{
    Random random(seed);
    std::vector<long double> sample = {from, to};
    for (std::size_t i = 0; i < scaled(count); ++i) {
        const long double unit = static_cast<long double>(random.next()) * 0x1p-64L;
        sample.push_back(from * (1 - unit) + to * unit);
    }
    return sample;
}

std::vector<long double> arguments_of_midpoints(std::span<const long double> results, const Unary& inverse)
{
    std::vector<long double> arguments;
    Exact midpoint;
    Exact argument;
    for (const long double result : results) {
        mpfr_set_ld(midpoint.value, result, MPFR_RNDN);
        mpfr_set_ui_2exp(argument.value, 1, mpfr_get_exp(midpoint.value) - 65, MPFR_RNDN);
        mpfr_add(midpoint.value, midpoint.value, argument.value, MPFR_RNDN);
        inverse(argument.value, midpoint.value);
        arguments.push_back(mpfr_get_ld(argument.value, MPFR_RNDN));
    }
    return arguments;
}

std::vector<long double> neighbours(long double x, int radius)
{
    const long double infinity = std::numeric_limits<long double>::infinity();
    std::vector<long double> sample = {x};
    for (const long double end : {-infinity, infinity}) {
        long double y = x;
        for (int i = 0; i < radius; ++i)
            sample.push_back(y = std::nextafter(y, end));
    }
    return sample;
}

void check_specials(const ScalarKernel& kernel, std::span<const SpecialScalar> cases, int result)
{
    for (const SpecialScalar& special : cases) {
        for (const Rounding rounding : all_roundings) {
            for (const unsigned precision : {64u, 53u, 24u}) {
                const ScalarResult got = call_scalar(kernel, special.x, special.y, {rounding, precision, 0});
                const Bits80& value = chosen(got, result);
                const std::string context = kernel.symbol + ' ' + special.name + ", rounding " +
                                            std::to_string(static_cast<unsigned>(rounding)) + ", precision " +
                                            std::to_string(precision) + ", x " + hex(special.x) + " y " +
                                            hex(special.y) + " gives " + hex(value);
                if (is_nan(special.expected))
                    EXPECT_TRUE(is_quiet_nan(value)) << context;
                else
                    EXPECT_EQ(hex(value), hex(special.expected)) << context;
                EXPECT_EQ(flag_names(got.flags & loud_flags), flag_names(special.flags)) << context;
            }
        }
    }
}

void check_pseudo_denormal(const ScalarKernel& kernel, int result)
{
    Bits80 normal = encoding::pseudo_denormal;
    normal.sign_exponent = 1;
    EXPECT_EQ(hex(chosen(call_scalar(kernel, encoding::pseudo_denormal), result)),
              hex(chosen(call_scalar(kernel, normal), result)))
        << kernel.symbol;
}

void check_nan_arguments(const ScalarKernel& kernel, int result, const Bits80& other)
{
    using namespace encoding;
    const struct {
        const char* name;
        Bits80 bits;
        unsigned flags;
    } encodings[] = {
        {"NaN", quiet_nan, 0},
        {"negative NaN", negative_quiet_nan, 0},
        {"signalling NaN", signalling_nan, flag_invalid},
        {"unnormal", unnormal, flag_invalid},
        {"unnormal zero", unnormal_zero, flag_invalid},
        {"negative unnormal", negative_unnormal, flag_invalid},
        {"pseudo-infinity", pseudo_infinity, flag_invalid},
        {"pseudo-NaN", pseudo_nan, flag_invalid},
    };
    std::vector<SpecialScalar> cases;
    for (const auto& [name, bits, flags] : encodings) {
        cases.push_back({name, bits, quiet_nan, flags, other});
        if (kernel.signature.ends_with("ll")) cases.push_back({name, other, quiet_nan, flags, bits});
    }
    check_specials(kernel, cases, result);
}

} // namespace zelk::test
