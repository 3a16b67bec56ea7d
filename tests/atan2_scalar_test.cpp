// The scalar arc tangent of two arguments.
#include "brava.h"
#include "remembered.h"
#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

using Limits = std::numeric_limits<double>;

struct Pairs {
    std::vector<double> ys;
    std::vector<double> xs;
};

Pairs in_all_quadrants(const std::vector<double>& ys, const std::vector<double>& xs)
{
    Pairs pairs;
    for (std::size_t i = 0; i < std::min(ys.size(), xs.size()); ++i)
        for (const double sy : {1.0, -1.0})
            for (const double sx : {1.0, -1.0}) {
                pairs.ys.push_back(sy * ys[i]);
                pairs.xs.push_back(sx * xs[i]);
            }
    return pairs;
}

// Both ways round, quotients on either side of the points where the table's row changes, and of 1.
Pairs near_row_changes()
{
    std::vector<double> ys;
    std::vector<double> xs;
    for (int n = 0; n <= 64; ++n)
        for (const double v : {1.0, 1.75, 0x1.fffffffffffffp0, 0x1p-1022, 0x1p-1060, 0x1p1000})
            for (const double u : neighbours(v * (n + 0.5) / 64, 2)) {
                if (u == 0) continue;
                ys.push_back(u);
                xs.push_back(v);
                ys.push_back(v);
                xs.push_back(u);
            }
    return in_all_quadrants(ys, xs);
}

TEST(Atan2Scalar, Error)
{
    EXPECT_EQ(tier_kernels("atan2_scalar").size(), 2u);
    const Binary arctangent = remembered(mpfr_binary(mpfr_atan2));
    const double largest = Limits::max();
    const struct {
        const char* name;
        Pairs pairs;
    } kinds[] = {
        {"comparable",
         in_all_quadrants(sample_interval(0x1p-20, 1.0, 3000, 1), sample_interval(0x1p-20, 1.0, 3000, 2))},
        {"any size", in_all_quadrants(sample_patterns(0x1p-1074, largest, 1500, 3),
                                      sample_patterns(0x1p-1074, largest, 1500, 4))},
        {"subnormal", in_all_quadrants(sample_patterns(0x1p-1074, 0x1p-1010, 500, 5),
                                       sample_patterns(0x1p-1074, 0x1p-1022, 500, 6))},
        {"subnormal results",
         in_all_quadrants(sample_patterns(0x1p-1070, 0x1p-1030, 500, 7), sample_interval(0.5, 4.0, 500, 8))},
        {"row changes", near_row_changes()},
    };
    for (const auto& kind : kinds)
        for (const ScalarKernel& kernel : tier_kernels("atan2_scalar"))
            expect_error_within(0.51, worst_error(kernel, kind.pairs.ys, kind.pairs.xs, arctangent),
                                kernel.symbol, kind.name);
    const Pairs& comparable = kinds[0].pairs;
    const std::span ys = std::span(comparable.ys).first(3000);
    const std::span xs = std::span(comparable.xs).first(3000);
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero})
        for (const ScalarKernel& kernel : tier_kernels("atan2_scalar"))
            expect_error_within(1.01, worst_error(kernel, ys, xs, arctangent, {rounding}), kernel.symbol,
                                "rounding mode " + std::to_string(static_cast<unsigned>(rounding)));
}

// Every pair of a zero, an infinity or a NaN with anything: the multiple of pi/4, and no flag. Tier L gives
// the nearest one in every rounding mode, tier A rounds it.
TEST(Atan2Scalar, SpecialPairs)
{
    const double magnitudes[] = {
        0, Limits::denorm_min(), Limits::min(), 1.5, Limits::max(), Limits::infinity(), Limits::quiet_NaN()};
    std::vector<double> values;
    for (const double magnitude : magnitudes) {
        values.push_back(magnitude);
        values.push_back(-magnitude);
    }
    constexpr mpfr_rnd_t mpfr_roundings[] = {MPFR_RNDN, MPFR_RNDD, MPFR_RNDU, MPFR_RNDZ};
    Exact y_exact;
    Exact x_exact;
    Exact angle;
    mpfr_set_prec(angle.value, 53);
    for (const ScalarKernel& kernel : tier_kernels("atan2_scalar"))
        for (const Rounding rounding : all_roundings)
            for (const double y : values)
                for (const double x : values) {
                    if (std::isfinite(y) && y != 0 && std::isfinite(x) && x != 0) continue;
                    mpfr_set_d(y_exact.value, y, MPFR_RNDN);
                    mpfr_set_d(x_exact.value, x, MPFR_RNDN);
                    mpfr_atan2(angle.value, y_exact.value, x_exact.value,
                               kernel.tier == 'A' ? mpfr_roundings[static_cast<unsigned>(rounding)]
                                                  : MPFR_RNDN);
                    const double expected = mpfr_get_d(angle.value, MPFR_RNDN);
                    const ScalarResult result = call_scalar(kernel, y, x, {rounding});
                    EXPECT_EQ(result.flags & loud_flags, 0u) << kernel.symbol << ' ' << y << ' ' << x;
                    if (std::isnan(expected))
                        EXPECT_TRUE(std::isnan(result.value_d())) << kernel.symbol << ' ' << y << ' ' << x;
                    else
                        EXPECT_EQ(result.narrow, std::bit_cast<std::uint64_t>(expected))
                            << kernel.symbol << ' ' << y << ' ' << x << " gives " << result.value_d();
                }
}

TEST(Atan2Scalar, SignallingNan)
{
    constexpr std::uint64_t signalling = 0x7FF4000000000000;
    for (const ScalarKernel& kernel : tier_kernels("atan2_scalar"))
        for (const double other : {0.0, 1.0, Limits::infinity(), Limits::quiet_NaN()}) {
            for (const ScalarResult& result : {call_scalar(kernel, Argument::of_bits(signalling), other),
                                               call_scalar(kernel, other, Argument::of_bits(signalling))}) {
                EXPECT_TRUE(std::isnan(result.value_d())) << kernel.symbol << ' ' << other;
                EXPECT_TRUE(result.narrow & 0x0008000000000000) << kernel.symbol << ' ' << other;
                EXPECT_EQ(result.flags & loud_flags, flag_invalid) << kernel.symbol << ' ' << other;
            }
        }
}

// Extreme quotients raise nothing loud; the registers are left as found.
TEST(Atan2Scalar, ExtremePairs)
{
    const double values[] = {0x1p-1074, 0x1p-1022, 1.0, Limits::max()};
    for (const ScalarKernel& kernel : tier_kernels("atan2_scalar"))
        for (const double y : values)
            for (const double x : values)
                for (const Rounding rounding : all_roundings) {
                    const ScalarResult result = call_scalar(kernel, -y, -x, {rounding});
                    EXPECT_EQ(result.flags & (loud_flags | flag_underflow), 0u)
                        << kernel.symbol << ' ' << y << ' ' << x;
                }
}

TEST(Atan2Scalar, FirstCall)
{
    __brava_cpu_indicator = 0;
    EXPECT_EQ(call_scalar(scalar_kernel("atan2_scalar"), 1.0, -1.0).value_d(), 0x1.2d97c7f3321d2p1);
    EXPECT_NE(__brava_cpu_indicator, 0u);
}

} // namespace
} // namespace zelk::test
