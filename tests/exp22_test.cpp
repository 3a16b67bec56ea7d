// 2^x on double2.
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double quiet_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double first_special = 0x1.ff001p9; // 1022 + 2^-11
constexpr double last_finite = 0x1.fffffffffffffp9;
constexpr double last_subnormal = -0x1.0cbffffffffffp10; // above -1075

struct Path {
    const char* name;
    std::vector<double> arguments;
    double bound;
    double bound_directed;
};

std::vector<Path> paths()
{
    return {
        {"tiny", with_negatives(sample_patterns(smallest, 0x1p-8, 4000)), 1.3, 256},
        {"fast", joined(sample_interval(-1021.99, 1021.99, 20000), sample_interval(-2.0, 2.0, 10000)), 2.6,
         256},
        // Results just below powers of two: r is largest against them in units of the last place.
        {"fraction 125/128", joined(sample_interval(0.973, 0.981, 4000), {0x1.f5b324185931ep-1}), 2.6, 256},
        {"scalar, large", sample_interval(first_special, 1023.99, 4000), 2.6, 256},
        {"scalar, subnormal", sample_interval(last_subnormal, -first_special, 6000), 1.6, 128},
    };
}

TEST(Exp22, ErrorByPath)
{
    for (const Path& path : paths())
        for (const auto& kernel : entry("exp22").kernels)
            expect_error_within(path.bound,
                                worst_error(kernel.address, path.arguments, mpfr_unary(mpfr_exp2)),
                                kernel.symbol, path.name);
}

// The polynomial is short and made for |r| <= 1/256; in the directed modes |r| reaches 1/128.
TEST(Exp22, ErrorInDirectedModes)
{
    for (const Path& path : paths())
        for (const auto& kernel : entry("exp22").kernels)
            expect_directed_error_within(path.bound_directed, kernel, path.arguments, mpfr_unary(mpfr_exp2));
}

// 2^n is exact for every integer n, in every rounding mode, in the fast path and beside a special lane, and
// raises nothing.
TEST(Exp22, IntegersAreExact)
{
    for (const auto& kernel : entry("exp22").kernels)
        for (const Rounding rounding : all_roundings)
            for (int n = -1074; n <= 1023; ++n) {
                const std::uint64_t expected =
                    n >= -1022 ? static_cast<std::uint64_t>(n + 1023) << 52 : std::uint64_t{1} << (n + 1074);
                const auto check = [&](double a, double b, int lane) {
                    const Result result = call(kernel.address, doubles(a, b), {}, {}, nullptr, rounding);
                    EXPECT_EQ(result.first.q[lane], expected) << kernel.symbol << " 2^" << n;
                    EXPECT_EQ(result.flags, 0u) << kernel.symbol << " 2^" << n;
                };
                check(n, n, 0);
                check(n, infinity, 0);
                check(-infinity, n, 1);
            }
}

TEST(Exp22, SpecialLanes)
{
    // Beyond binary32 the conversion that tells NaNs overflows, for either sign.
    const Special<double> cases[] = {
        {"+0", 0.0, 1.0},
        {"-0", -0.0, 1.0},
        {"+inf", infinity, infinity},
        {"-inf", -infinity, 0.0},
        {"NaN", quiet_nan, quiet_nan},
        {"-NaN", -quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_d, quiet_nan, flag_invalid},
        {"1024", 1024.0, infinity},
        {"2000", 2000.0, infinity},
        {"2^127", 0x1p127, infinity},
        {"1e300", 1e300, infinity, flag_overflow},
        {"largest", largest, infinity, flag_overflow},
        {"-1075", -1075.0, 0.0},
        {"-2000", -2000.0, 0.0},
        {"-2^127", -0x1p127, 0.0},
        {"-1e300", -1e300, 0.0, flag_overflow},
        {"-largest", -largest, 0.0, flag_overflow},
    };
    for (const auto& kernel : entry("exp22").kernels)
        for (const double ordinary : {1.25, -1021.5})
            check_specials(kernel, cases, ordinary, OrdinaryLanes::keep_bits);
}

// Every NaN gives one NaN.
TEST(Exp22, NanPattern)
{
    const std::uint64_t nans[] = {0x7FF8000000000000, 0xFFF8000000012345, 0x7FF0000000000001,
                                  0xFFF0000000000001};
    for (const auto& kernel : entry("exp22").kernels)
        for (const std::uint64_t nan : nans) {
            const Result result = call(kernel.address, quads(nan, nan));
            EXPECT_EQ(result.first.q[0], 0x7FFFFFFF00000000u) << kernel.symbol;
            EXPECT_EQ(result.first.q[1], 0x7FFFFFFF00000000u) << kernel.symbol;
        }
}

TEST(Exp22, Thresholds)
{
    std::vector<double> arguments;
    for (const double threshold : {1022.0, first_special, 1024 - 0x1p-8, last_finite, -1022.0, -first_special,
                                   last_subnormal, -1074.0, -1074.5})
        for (const double x : neighbours(threshold, 20))
            if (x <= last_finite && x >= last_subnormal) arguments.push_back(x);
    for (const auto& kernel : entry("exp22").kernels) {
        expect_error_within(2.6, worst_error(kernel.address, arguments, mpfr_unary(mpfr_exp2)), kernel.symbol,
                            "thresholds");
        // Below 2^1024 by the last bit of x, and above half the smallest number.
        const Result ends = call(kernel.address, doubles(last_finite, last_subnormal));
        EXPECT_LE(ends.first.d[0], largest) << kernel.symbol;
        EXPECT_EQ(ends.first.d[1], smallest) << kernel.symbol;
        EXPECT_EQ(flag_names(ends.flags), flag_names(flag_underflow | flag_inexact)) << kernel.symbol;
    }
}

// A special lane sends both lanes through the scalar steps, which give the bits of the fast path.
TEST(Exp22, MixedVectorsAndTiers)
{
    const auto& kernels = entry("exp22").kernels;
    const auto arguments =
        joined(joined(sample_interval(-1022.0, 1022.0, 4000), sample_interval(-1.0, 1.0, 2000)),
               joined(neighbours(1022.0, 20), neighbours(-1022.0, 20)));
    for (const double x : arguments) {
        const Result fast = call(kernels[0].address, doubles(x, x));
        for (const auto& kernel : kernels)
            for (const double special : {1023.75, -1050.25, infinity}) {
                const Result low = call(kernel.address, doubles(x, special));
                const Result high = call(kernel.address, doubles(special, x));
                EXPECT_EQ(low.first.q[0], fast.first.q[0]) << kernel.symbol << ' ' << x;
                EXPECT_EQ(high.first.q[1], fast.first.q[1]) << kernel.symbol << ' ' << x;
                EXPECT_EQ(low.first.q[1], high.first.q[0]) << kernel.symbol << ' ' << x;
            }
    }
}

} // namespace
} // namespace zelk::test
