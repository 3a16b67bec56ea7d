// 80-bit exponential and logarithms.
#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelk::test {
namespace {

using namespace encoding;

std::vector<long double> negated(std::vector<long double> xs)
{
    for (long double& x : xs)
        x = -x;
    return xs;
}
std::vector<long double> one_plus(std::vector<long double> xs)
{
    for (long double& x : xs)
        x += 1.0L;
    return xs;
}

TEST(Expl, ErrorByPath)
{
    const Unary exact = mpfr_unary(mpfr_exp);
    const auto check = [&](std::span<const long double> xs, const char* path) {
        expect_errors_within(0.505, "expl_scalar", exact, xs, path);
    };
    check(with_negatives(sample_binades(-70, 13, 6000)), "all binades");
    check(with_negatives(sample_binades(smallest_exponent, -64, 2000)), "tiny");
    check(sample_interval(-11355.0L, 11356.5L, 12000), "normal results");
    check(sample_interval(-11400.0L, -11355.0L, 8000), "denormal results");
    check(arguments_of_midpoints(sample_interval(0.999L, 1.001L, 8000), mpfr_unary(mpfr_log)), "midpoints");
    expect_errors_in_directed_modes(1.02, "expl_scalar", exact, sample_interval(-11400.0L, 11356.5L, 1500));
}

TEST(Expl, OverflowAndUnderflow)
{
    const ScalarKernel kernel = scalar_kernel("expl_scalar");
    const Unary exact = mpfr_unary(mpfr_exp);
    // ln of 2^16384, 2^-16382, 2^-16445 and 2^-16446.
    for (const long double edge : {0xb.17217f7d1cf79acp+10L, -0xb.16c8c671210eb3p+10L,
                                   -0xb.21b38b6aa03736cp+10L, -0xb.21dfe7f09e2baaap+10L}) {
        const auto xs = neighbours(edge, 40);
        expect_error_within(0.505, worst_error(kernel, xs, exact), kernel.symbol, "thresholds");
        for (const long double x : xs) {
            const ScalarResult result = call_scalar(kernel, x);
            const long double y = result.value();
            EXPECT_EQ((result.flags & flag_overflow) != 0, std::isinf(y)) << hex(bits80(x));
            EXPECT_EQ((result.flags & flag_underflow) != 0, y < number(smallest_normal)) << hex(bits80(x));
            EXPECT_TRUE(result.flags & flag_inexact);
        }
    }
    const struct {
        Bits80 x;
        Bits80 by_rounding[4]; // nearest, down, up, zero
        unsigned flags;
    } cases[] = {
        {largest, {plus_infinity, largest, plus_infinity, largest}, flag_overflow | flag_inexact},
        {bits80(11357.0L), {plus_infinity, largest, plus_infinity, largest}, flag_overflow | flag_inexact},
        {minus_largest, {plus_zero, plus_zero, smallest_denormal, plus_zero}, flag_underflow | flag_inexact},
        {bits80(-11400.0L),
         {plus_zero, plus_zero, smallest_denormal, plus_zero},
         flag_underflow | flag_inexact},
    };
    for (const auto& [x, by_rounding, flags] : cases) {
        for (const Rounding rounding : all_roundings) {
            const ScalarResult result = call_scalar(kernel, x, {}, {rounding});
            EXPECT_EQ(hex(result.extended), hex(by_rounding[static_cast<unsigned>(rounding)])) << hex(x);
            EXPECT_EQ(flag_names(result.flags & ~flag_denormal), flag_names(flags)) << hex(x);
        }
    }
}

TEST(Expl, Specials)
{
    const ScalarKernel kernel = scalar_kernel("expl_scalar");
    const SpecialScalar cases[] = {
        {"+0", plus_zero, plus_one},
        {"-0", minus_zero, plus_one},
        {"+inf", plus_infinity, plus_infinity},
        {"-inf", minus_infinity, plus_zero},
    };
    check_specials(kernel, cases);
    check_nan_arguments(kernel);
    for (const Bits80& x : {smallest_denormal, minus_smallest_denormal, pseudo_denormal}) {
        const ScalarResult result = call_scalar(kernel, x);
        EXPECT_EQ(hex(result.extended), hex(plus_one));
        EXPECT_EQ(flag_names(result.flags & ~flag_denormal), "inexact");
    }
}

TEST(Logl, ErrorByPath)
{
    const Unary exact = mpfr_unary(mpfr_log);
    const auto check = [&](std::span<const long double> xs, const char* path) {
        expect_errors_within(0.505, "logl_scalar", exact, xs, path);
    };
    check(sample_binades(smallest_exponent, largest_exponent, 12000), "all binades");
    check(sample_interval(0.5L, 2.0L, 12000), "0.5..2");
    check(sample_interval(1 - 0x1.1p-9L, 1 + 0x1.1p-9L, 8000), "polynomial alone");
    check(one_plus(with_negatives(sample_binades(-63, -1, 4000))), "to the neighbours of 1");
    check(arguments_of_midpoints(sample_interval(1.0L, 11356.0L, 8000), mpfr_unary(mpfr_exp)), "midpoints");
    expect_errors_in_directed_modes(1.02, "logl_scalar", exact, sample_interval(0.5L, 2.0L, 1500));
}

TEST(Log1pl, ErrorByPath)
{
    const Unary exact = mpfr_unary(mpfr_log1p);
    const auto check = [&](std::span<const long double> xs, const char* path) {
        expect_errors_within(0.505, "log1pl_scalar", exact, xs, path);
    };
    check(sample_binades(smallest_exponent, largest_exponent, 12000), "positive, all binades");
    check(negated(sample_binades(smallest_exponent, -1, 12000)), "negative, all binades");
    check(sample_binades(-70, 70, 8000), "positive, ordinary");
    check(negated(sample_binades(-70, -1, 8000)), "negative, ordinary");
    check(sample_interval(-1 + 0x1p-64L, 1.0L, 6000), "-1..1");
    check(sample_interval(-0x1.1p-9L, 0x1.1p-9L, 6000), "polynomial alone");
    check(arguments_of_midpoints(sample_interval(1.0L, 11356.0L, 4000), mpfr_unary(mpfr_expm1)), "midpoints");
    expect_errors_in_directed_modes(1.02, "log1pl_scalar", exact, sample_interval(-0.999L, 2.0L, 1500));
}

TEST(Logl, Specials)
{
    const SpecialScalar cases[] = {
        {"+0", plus_zero, minus_infinity, flag_divide_by_zero},
        {"-0", minus_zero, minus_infinity, flag_divide_by_zero},
        {"1", plus_one, plus_zero},
        {"-1", minus_one, quiet_nan, flag_invalid},
        {"-smallest", minus_smallest_denormal, quiet_nan, flag_invalid},
        {"-largest", minus_largest, quiet_nan, flag_invalid},
        {"-inf", minus_infinity, quiet_nan, flag_invalid},
        {"+inf", plus_infinity, plus_infinity},
    };
    check_specials(scalar_kernel("logl_scalar"), cases);
    check_nan_arguments(scalar_kernel("logl_scalar"));
    check_pseudo_denormal(scalar_kernel("logl_scalar"));
    EXPECT_EQ(call_scalar(scalar_kernel("logl_scalar"), 1.0L, {}, {Rounding::down}).flags, 0u);
}

TEST(Log1pl, Specials)
{
    const SpecialScalar cases[] = {
        {"+0", plus_zero, plus_zero},
        {"-0", minus_zero, minus_zero},
        {"-1", minus_one, minus_infinity, flag_divide_by_zero},
        {"below -1", bits80(-1 - 0x1p-63L), quiet_nan, flag_invalid},
        {"-largest", minus_largest, quiet_nan, flag_invalid},
        {"-inf", minus_infinity, quiet_nan, flag_invalid},
        {"+inf", plus_infinity, plus_infinity},
    };
    const ScalarKernel kernel = scalar_kernel("log1pl_scalar");
    check_specials(kernel, cases);
    check_nan_arguments(kernel);
    check_pseudo_denormal(kernel);
    for (const Bits80& x : {smallest_denormal, minus_smallest_denormal, largest_denormal})
        EXPECT_EQ(hex(call_scalar(kernel, x).extended), hex(x));
}

// Ordinary arguments raise inexact and nothing else, however small the terms in between.
TEST(Logl, OrdinaryArgumentsRaiseInexactAlone)
{
    for (const char* const name : {"expl_scalar", "logl_scalar", "log1pl_scalar"})
        for (const long double x : sample_binades(-16300, 13, 2000))
            EXPECT_EQ(flag_names(call_scalar(scalar_kernel(name), x).flags), "inexact")
                << name << hex(bits80(x));
}

} // namespace
} // namespace zelk::test
