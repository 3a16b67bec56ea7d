// 80-bit hyperbolic functions and their inverses.
#include "brava.h"
#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelk::test {
namespace {

using namespace encoding;

struct Function {
    const char* name;
    int (*exact)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
    int (*inverse)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
    double bound;
    int result; // which one a routine of two stores
};

constexpr Function hyperbolic[] = {
    {"sinhl_scalar", mpfr_sinh, mpfr_asinh, 0.52, -1},
    {"coshl_scalar", mpfr_cosh, mpfr_acosh, 0.51, -1},
    {"tanhl_scalar", mpfr_tanh, mpfr_atanh, 0.515, -1},
};

TEST(Hyperbolic, ErrorByPath)
{
    for (const auto& [name, exact, inverse, bound, which] : hyperbolic) {
        const auto check = [&, name = name, exact = exact, bound = bound](std::span<const long double> xs,
                                                                          const char* path) {
            expect_errors_within(bound, name, mpfr_unary(exact), xs, path);
        };
        check(with_negatives(sample_binades(smallest_exponent, 13, 4000)), "all binades");
        check(with_negatives(sample_binades(-35, 6, 6000)), "ordinary binades");
        check(sample_interval(-45.0L, 45.0L, 8000), "-45..45");
        check(sample_interval(-0.3L, 0.3L, 8000), "-0.3..0.3");
        check(with_negatives(sample_interval(11350.0L, 0x1.62e9bb80635d81d4p+13L, 1500)), "to the overflow");
        check(arguments_of_midpoints(sample_interval(name[0] == 't' ? 0.98L : 1e9L,
                                                     name[0] == 't' ? 1.0L - 0x1p-60L : 2e18L, 4000),
                                     mpfr_unary(inverse)),
              "midpoints");
        for (const long double edge : {0x1p-33L, 0.125L, 40.0L, 32.0L})
            check(with_negatives(neighbours(edge, 50)), "thresholds");
        expect_errors_in_directed_modes(
            1.06, name, mpfr_unary(exact),
            joined(sample_interval(-50.0L, 50.0L, 500), sample_interval(-0.3L, 0.3L, 500)));
    }
}

TEST(Hyperbolic, PairHasTheBitsOfEach)
{
    const ScalarKernel both = scalar_kernel("sinhcoshl_scalar");
    auto xs =
        with_negatives(joined(sample_binades(smallest_exponent, 16383, 3000), sample_binades(-35, 13, 3000)));
    for (const Bits80& x : {plus_zero, minus_zero, plus_infinity, minus_infinity, quiet_nan, signalling_nan,
                            unnormal, pseudo_denormal, smallest_denormal})
        xs.push_back(number(x));
    for (const long double x : xs) {
        const ScalarResult pair = call_scalar(both, x);
        const ScalarResult sinh = call_scalar(scalar_kernel("sinhl_scalar"), x);
        const ScalarResult cosh = call_scalar(scalar_kernel("coshl_scalar"), x);
        ASSERT_EQ(hex(pair.stored[0]), hex(sinh.extended)) << hex(bits80(x));
        ASSERT_EQ(hex(pair.stored[1]), hex(cosh.extended)) << hex(bits80(x));
        ASSERT_EQ(flag_names(pair.flags & loud_flags), flag_names((sinh.flags | cosh.flags) & loud_flags))
            << hex(bits80(x));
    }
}

TEST(Hyperbolic, Overflow)
{
    const long double edge = 0x1.62e9bb80635d81d4p+13L; // ln 2^16385
    for (const char* const name : {"sinhl_scalar", "coshl_scalar"}) {
        const ScalarKernel kernel = scalar_kernel(name);
        const Unary exact = mpfr_unary(name[0] == 's' ? mpfr_sinh : mpfr_cosh);
        const auto xs = with_negatives(neighbours(edge, 40));
        expect_error_within(0.52, worst_error(kernel, xs, exact), name, "overflow threshold");
        for (const long double x :
             joined(xs, {20000.0L, -20000.0L, number(largest), number(minus_largest)})) {
            const ScalarResult result = call_scalar(kernel, x);
            EXPECT_EQ((result.flags & flag_overflow) != 0, std::isinf(result.value())) << hex(bits80(x));
            EXPECT_EQ(std::signbit(result.value()), name[0] == 's' && x < 0);
        }
        EXPECT_EQ(hex(call_scalar(kernel, 20000.0L, {}, {Rounding::zero}).extended), hex(largest));
    }
}

TEST(Hyperbolic, Specials)
{
    const SpecialScalar sinh[] = {
        {"+0", plus_zero, plus_zero},
        {"-0", minus_zero, minus_zero},
        {"+inf", plus_infinity, plus_infinity},
        {"-inf", minus_infinity, minus_infinity},
    };
    const SpecialScalar cosh[] = {
        {"+0", plus_zero, plus_one},
        {"-0", minus_zero, plus_one},
        {"+inf", plus_infinity, plus_infinity},
        {"-inf", minus_infinity, plus_infinity},
    };
    const SpecialScalar tanh[] = {
        {"+0", plus_zero, plus_zero},
        {"-0", minus_zero, minus_zero},
        {"+inf", plus_infinity, plus_one},
        {"-inf", minus_infinity, minus_one},
    };
    check_specials(scalar_kernel("sinhl_scalar"), sinh);
    check_specials(scalar_kernel("coshl_scalar"), cosh);
    check_specials(scalar_kernel("tanhl_scalar"), tanh);
    check_specials(scalar_kernel("sinhcoshl_scalar"), sinh, 0);
    check_specials(scalar_kernel("sinhcoshl_scalar"), cosh, 1);
    for (const char* const name : {"sinhl_scalar", "coshl_scalar", "tanhl_scalar"})
        check_nan_arguments(scalar_kernel(name));
    check_nan_arguments(scalar_kernel("sinhcoshl_scalar"), 0);
    check_nan_arguments(scalar_kernel("sinhcoshl_scalar"), 1);
}

constexpr Function inverses[] = {
    {"asinhl_scalar", mpfr_asinh, mpfr_sinh, 0.51, -1},
    {"acoshl_scalar", mpfr_acosh, mpfr_cosh, 0.51, -1},
    {"atanhl_scalar", mpfr_atanh, mpfr_tanh, 0.51, -1},
};

// Distances from 1 over all binades, on the given side.
std::vector<long double> next_to_one(long double side, std::size_t count)
{
    std::vector<long double> xs;
    for (const long double d : sample_binades(-63, -2, count))
        xs.push_back(1.0L + side * d);
    return xs;
}

TEST(InverseHyperbolic, ErrorByPath)
{
    const auto check = [](const Function& function, std::span<const long double> xs, const char* path) {
        expect_errors_within(function.bound, function.name, mpfr_unary(function.exact), xs, path);
    };
    const auto& [asinh, acosh, atanh] = inverses;
    check(asinh, with_negatives(sample_binades(smallest_exponent, largest_exponent, 6000)), "all binades");
    check(asinh, with_negatives(sample_binades(-35, 40, 8000)), "ordinary binades");
    check(asinh, sample_interval(-3.0L, 3.0L, 8000), "-3..3");
    check(acosh, sample_binades(0, largest_exponent, 12000), "all binades");
    check(acosh, sample_binades(0, 40, 8000), "ordinary binades");
    check(acosh, sample_interval(1.0L, 3.0L, 8000), "1..3");
    check(acosh, next_to_one(1, 8000), "next to 1");
    check(acosh, sample_interval(1.0L, 1.0L + 0x1.1p-7L, 8000), "polynomial alone");
    check(atanh, with_negatives(sample_binades(smallest_exponent, -1, 6000)), "all binades");
    check(atanh, with_negatives(sample_binades(-35, -1, 8000)), "ordinary binades");
    check(atanh, sample_interval(-1 + 0x1p-64L, 1 - 0x1p-64L, 8000), "-1..1");
    check(atanh, with_negatives(next_to_one(-1, 4000)), "next to 1");
    for (const Function& function : inverses)
        check(function,
              arguments_of_midpoints(sample_interval(3.0L, 20.0L, 4000), mpfr_unary(function.inverse)),
              "midpoints");
    check(asinh, with_negatives(joined(neighbours(0.0625L, 50), neighbours(0x1p36L, 50))), "thresholds");
    check(acosh, joined(neighbours(1 + 0x1p-7L, 50), neighbours(0x1p36L, 50)), "thresholds");
    check(atanh, with_negatives(neighbours(0.0625L, 50)), "thresholds");
    expect_errors_in_directed_modes(1.03, asinh.name, mpfr_unary(mpfr_asinh),
                                    sample_interval(-50.0L, 50.0L, 1000));
    expect_errors_in_directed_modes(1.03, acosh.name, mpfr_unary(mpfr_acosh),
                                    sample_interval(1.0L, 50.0L, 1000));
    expect_errors_in_directed_modes(1.03, atanh.name, mpfr_unary(mpfr_atanh),
                                    sample_interval(-0.999L, 0.999L, 1000));
}

#if defined(__i386__)
// The routines that have other kernels for processors without SSE2.
TEST(Extended, ErrorWithoutSse2)
{
    const std::uint32_t saved = __brava_cpu_indicator;
    __brava_cpu_indicator = 1;
    const struct {
        const char* name;
        int (*exact)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
        std::vector<long double> xs;
    } cases[] = {
        {"logl_scalar", mpfr_log,
         joined(sample_binades(smallest_exponent, 16383, 2000), sample_interval(0.5L, 2.0L, 2000))},
        {"log1pl_scalar", mpfr_log1p,
         joined(with_negatives(sample_binades(-70, -1, 2000)), sample_binades(0, 100, 2000))},
        {"tanhl_scalar", mpfr_tanh, with_negatives(sample_binades(-35, 6, 2000))},
        {"asinhl_scalar", mpfr_asinh, with_negatives(sample_binades(-35, 40, 2000))},
        {"acoshl_scalar", mpfr_acosh,
         joined(sample_binades(0, 40, 2000), sample_interval(1.0L, 1.0L + 0x1.1p-7L, 2000))},
        {"atanhl_scalar", mpfr_atanh,
         with_negatives(joined(sample_binades(-35, -1, 2000), next_to_one(-1, 1000)))},
    };
    for (const auto& [name, exact, xs] : cases) {
        expect_errors_within(0.515, name, mpfr_unary(exact), xs, "tier A");
        check_nan_arguments(scalar_kernel(name));
    }
    __brava_cpu_indicator = saved;
}
#endif

TEST(InverseHyperbolic, Specials)
{
    const SpecialScalar asinh[] = {
        {"+0", plus_zero, plus_zero},
        {"-0", minus_zero, minus_zero},
        {"+inf", plus_infinity, plus_infinity},
        {"-inf", minus_infinity, minus_infinity},
    };
    const SpecialScalar acosh[] = {
        {"1", plus_one, plus_zero},
        {"below 1", {~std::uint64_t{0}, 0x3FFE}, quiet_nan, flag_invalid},
        {"+0", plus_zero, quiet_nan, flag_invalid},
        {"-0", minus_zero, quiet_nan, flag_invalid},
        {"smallest", smallest_denormal, quiet_nan, flag_invalid},
        {"-1", minus_one, quiet_nan, flag_invalid},
        {"-2", bits80(-2.0L), quiet_nan, flag_invalid},
        {"-inf", minus_infinity, quiet_nan, flag_invalid},
        {"+inf", plus_infinity, plus_infinity},
    };
    const SpecialScalar atanh[] = {
        {"+0", plus_zero, plus_zero},
        {"-0", minus_zero, minus_zero},
        {"1", plus_one, plus_infinity, flag_divide_by_zero},
        {"-1", minus_one, minus_infinity, flag_divide_by_zero},
        {"above 1", {integer_bit + 1, 0x3FFF}, quiet_nan, flag_invalid},
        {"below -1", {integer_bit + 1, 0xBFFF}, quiet_nan, flag_invalid},
        {"+inf", plus_infinity, quiet_nan, flag_invalid},
        {"-inf", minus_infinity, quiet_nan, flag_invalid},
    };
    check_specials(scalar_kernel("asinhl_scalar"), asinh);
    check_specials(scalar_kernel("acoshl_scalar"), acosh);
    check_specials(scalar_kernel("atanhl_scalar"), atanh);
    for (const Function& function : inverses)
        check_nan_arguments(scalar_kernel(function.name));
}

// Odd functions keep denormals and raise nothing loud or spurious on the way.
TEST(Hyperbolic, SmallArguments)
{
    for (const char* const name :
         {"sinhl_scalar", "tanhl_scalar", "asinhl_scalar", "atanhl_scalar", "coshl_scalar"}) {
        const ScalarKernel kernel = scalar_kernel(name);
        check_pseudo_denormal(kernel);
        for (const long double x : sample_binades(-16300, -1, 2000))
            EXPECT_EQ(flag_names(call_scalar(kernel, x).flags), "inexact") << name << hex(bits80(x));
        if (name[0] == 'c') continue;
        for (const Bits80& x :
             {smallest_denormal, minus_smallest_denormal, largest_denormal, smallest_normal})
            EXPECT_EQ(hex(call_scalar(kernel, x).extended), hex(x)) << name;
    }
}

// With the x87 at 53 or 24 bits the results are what that leaves: a few units of that precision, and as many
// more as the reduction's products lose.
TEST(Extended, ReducedPrecision)
{
    const struct {
        const char* name;
        int (*exact)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
        long double from;
        long double to;
        double units_53;
        double units_24;
    } cases[] = {
        {"expl_scalar", mpfr_exp, -1, 1, 2, 2},
        {"expl_scalar", mpfr_exp, -11000, 11000, 16500, 16500},
        {"logl_scalar", mpfr_log, 2, 0x1p16000L, 2, 2},
        {"logl_scalar", mpfr_log, 0.5L, 2, 2, 1200},
        {"log1pl_scalar", mpfr_log1p, -0.99L, 3, 20, 1200},
        {"sinhl_scalar", mpfr_sinh, -50, 50, 70, 70},
        {"coshl_scalar", mpfr_cosh, -50, 50, 70, 70},
        {"tanhl_scalar", mpfr_tanh, -20, 20, 5, 15},
        {"asinhl_scalar", mpfr_asinh, -50, 50, 2, 10},
        {"acoshl_scalar", mpfr_acosh, 1, 50, 5, 15},
        {"atanhl_scalar", mpfr_atanh, -0.99L, 0.99L, 20, 100},
    };
    for (const auto& [name, exact, from, to, units_53, units_24] : cases) {
        const auto xs = sample_interval(from, to, 500);
        for (const unsigned precision : {53u, 24u}) {
            const Environment environment{Rounding::nearest, precision};
            WorstScalar worst = worst_error(scalar_kernel(name), xs, mpfr_unary(exact), -1, environment);
            worst.ulp = std::ldexp(worst.ulp, static_cast<int>(precision) - 64);
            expect_error_within(precision == 53 ? units_53 : units_24, worst, name,
                                "in units of " + std::to_string(precision) + " bits");
        }
    }
}

TEST(Hyperbolic, Fabs)
{
    const ScalarKernel kernel = scalar_kernel("fabsl_scalar");
    for (const Bits80& x : {plus_zero, minus_zero, minus_one, plus_infinity, minus_infinity, minus_largest,
                            minus_smallest_denormal, pseudo_denormal, negative_quiet_nan, signalling_nan}) {
        const ScalarResult result = call_scalar(kernel, x, {}, {Rounding::down, 24});
        EXPECT_EQ(result.extended.significand, x.significand) << hex(x);
        EXPECT_EQ(result.extended.sign_exponent, x.sign_exponent & 0x7FFF) << hex(x);
        EXPECT_EQ(flag_names(result.flags), "none") << hex(x);
    }
}

} // namespace
} // namespace zelk::test
