// The scalar arc cosine.
#include "brava.h"
#include "remembered.h"
#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double pi = 0x1.921fb54442d18p1;

// The first arguments of the paths, by the high word.
constexpr double small_start = 0x1p-57;
constexpr double PL_start = 0x1.8f8b8p-3;
constexpr double diagonal_start = 0x1.87de4p-2;
constexpr double half_angle_start = 0x1.d906bp-1;

TEST(AcosScalar, ErrorByPath)
{
    EXPECT_EQ(tier_kernels("acos_scalar").size(), 2u);
    const Unary arccosine = remembered(mpfr_unary(mpfr_acos));
    const struct {
        const char* name;
        double from;
        double to;
        double bound_A;
        double bound_others;
    } paths[] = {
        {"tiny", 0x1p-1074, small_start, 0.51, 0.51},
        {"QL", small_start, PL_start, 0.51, 0.51},
        {"PL", PL_start, diagonal_start, 0.51, 0.51},
        {"from the diagonal", diagonal_start, half_angle_start, 1.98, 0.51},
        {"half angle", half_angle_start, 1.0, 1.02, 0.51},
    };
    for (const auto& path : paths) {
        const auto interval = sample_interval(path.from, std::nextafter(path.to, 0.0), 4000);
        const auto ends = joined(sample_patterns(path.from, path.to, 1000),
                                 joined(neighbours(path.from * 2, 20), neighbours(path.to, 20)));
        std::vector<double> arguments;
        for (const double x : with_negatives(joined(interval, ends)))
            if (std::fabs(x) >= path.from && std::fabs(x) < path.to) arguments.push_back(x);
        for (const ScalarKernel& kernel : tier_kernels("acos_scalar"))
            expect_error_within(kernel.tier == 'A' ? path.bound_A : path.bound_others,
                                worst_error(kernel, arguments, arccosine), kernel.symbol, path.name);
    }
}

TEST(AcosScalar, DirectedRounding)
{
    const Unary arccosine = remembered(mpfr_unary(mpfr_acos));
    const auto arguments = with_negatives(sample_interval(0x1p-60, std::nextafter(1.0, 0.0), 1000));
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero})
        for (const ScalarKernel& kernel : tier_kernels("acos_scalar"))
            expect_error_within(kernel.tier == 'A' ? 4 : 1.01,
                                worst_error(kernel, arguments, arccosine, {rounding}), kernel.symbol,
                                "rounding mode " + std::to_string(static_cast<unsigned>(rounding)));
}

TEST(AcosScalar, SpecialArguments)
{
    const std::uint64_t pi_bits = std::bit_cast<std::uint64_t>(pi);
    for (const ScalarKernel& kernel : tier_kernels("acos_scalar")) {
        for (const Rounding rounding : all_roundings) {
            const ScalarResult one = call_scalar(kernel, 1.0, {}, {rounding});
            EXPECT_EQ(one.narrow, 0u) << kernel.symbol;
            EXPECT_EQ(flag_names(one.flags), "none") << kernel.symbol;

            // pi less nothing to speak of: rounded, and inexact.
            const ScalarResult minus_one = call_scalar(kernel, -1.0, {}, {rounding});
            EXPECT_EQ(minus_one.narrow, rounding == Rounding::up ? pi_bits + 1 : pi_bits) << kernel.symbol;
            EXPECT_EQ(flag_names(minus_one.flags), "inexact") << kernel.symbol;

            for (const double x : {std::nextafter(1.0, 2.0), 1.5, 0x1p1023, infinity})
                for (const double signed_x : {x, -x}) {
                    const ScalarResult result = call_scalar(kernel, signed_x, {}, {rounding});
                    EXPECT_TRUE(std::isnan(result.value_d())) << kernel.symbol << ' ' << signed_x;
                    EXPECT_EQ(flag_names(result.flags), "invalid") << kernel.symbol << ' ' << signed_x;
                }

            for (const std::uint64_t nan : {0x7FF8000000000000, 0x7FFC123456789ABC, 0x7FF8000000000001}) {
                const std::uint64_t negative = nan | std::uint64_t{1} << 63;
                for (const std::uint64_t bits : {nan, negative}) {
                    const ScalarResult result = call_scalar(kernel, Argument::of_bits(bits), {}, {rounding});
                    EXPECT_EQ(result.narrow, bits) << kernel.symbol;
                    EXPECT_EQ(flag_names(result.flags), "none") << kernel.symbol;
                }
            }
#if defined(__x86_64__)
            // Unchanged means unquieted too. On i386 the return through st(0) quiets it.
            EXPECT_EQ(call_scalar(kernel, Argument::of_bits(0x7FF4000000000000), {}, {rounding}).narrow,
                      0x7FF4000000000000u);
#endif
        }
        EXPECT_EQ(call_scalar(kernel, 0.0).value_d(), pi / 2) << kernel.symbol;
        EXPECT_EQ(call_scalar(kernel, -0.0).value_d(), pi / 2) << kernel.symbol;
    }
}

// Every path leaves the x87 stack empty and the control words as they were, and raises nothing loud.
TEST(AcosScalar, StateAndFlags)
{
    for (const ScalarKernel& kernel : tier_kernels("acos_scalar"))
        for (const double x : {0.0, 0x1p-1074, 0x1p-60, 0.1, 0.3, 0.5, 0.8, 0.99, 1.0, 2.0})
            for (const double signed_x : {x, -x}) {
                const ScalarResult result = call_scalar(kernel, signed_x, {}, {Rounding::up});
                EXPECT_EQ(result.flags & loud_flags, x > 1 ? flag_invalid : 0u) << kernel.symbol << signed_x;
            }
}

// The first call of a process determines the features, and still has its argument.
TEST(AcosScalar, FirstCall)
{
    __brava_cpu_indicator = 0;
    EXPECT_EQ(call_scalar(scalar_kernel("acos_scalar"), 0.5).value_d(), 0x1.0c152382d7366p0);
    EXPECT_NE(__brava_cpu_indicator, 0u);
}

} // namespace
} // namespace zelk::test
