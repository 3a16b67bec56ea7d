// Single precision tanh.
#include "oracle.h"
#include "special_lanes.h"
#include "symmetry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float largest = std::numeric_limits<float>::max();
constexpr float smallest = std::numeric_limits<float>::denorm_min();
constexpr float quiet_nan = std::numeric_limits<float>::quiet_NaN();

TEST(Tanhf4, ErrorByPath)
{
    // Halfway between two entries of the table, where r is largest and the entry changes.
    std::vector<float> midpoints;
    for (int j = 0; j < 160; ++j)
        midpoints = joined(std::move(midpoints), neighbours((static_cast<float>(j) + 0.5f) / 16.0f, 4));
    const struct {
        const char* name;
        std::vector<float> arguments;
        double bound;
    } paths[] = {
        {"below 1/32", sample_patterns(smallest, 0x1p-5f, 20000), 2.8},
        {"table", joined(sample_patterns(0x1p-5f, 10.0f, 20000), sample_interval(0x1p-5f, 10.0f, 20000)),
         3.6},
        {"between entries", midpoints, 3.6},
        {"saturated", joined(neighbours(10.0f, 50), sample_patterns(10.0f, largest, 1000)), 0.51},
    };
    for (const auto& path : paths)
        for (const auto& kernel : entry("tanhf4").kernels)
            expect_error_within(
                path.bound,
                worst_error(kernel.address, with_negatives(path.arguments), mpfr_unary(mpfr_tanh)),
                kernel.symbol, path.name);
}

TEST(Tanhf4, SpecialLanes)
{
    const Special<float> cases[] = {
        {"+0", 0.0f, 0.0f},
        {"-0", -0.0f, -0.0f},
        {"10", 10.0f, 1.0f},
        {"-10", -10.0f, -1.0f},
        {"largest", largest, 1.0f},
        {"-largest", -largest, -1.0f},
        {"+inf", infinity, 1.0f},
        {"-inf", -infinity, -1.0f},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_f, quiet_nan, flag_invalid},
    };
    const Special<float> tiny[] = {{"smallest", smallest, smallest},
                                   {"-smallest", -smallest, -smallest},
                                   {"smallest normal", 0x1p-126f, 0x1p-126f}};
    const Rounding nearest[] = {Rounding::nearest};
    for (const auto& kernel : entry("tanhf4").kernels) {
        check_specials(kernel, cases, 1.25f, OrdinaryLanes::keep_bits);
        check_specials(kernel, tiny, 1.25f, OrdinaryLanes::keep_bits, nearest);
    }
}

// The payload of a NaN gives a table index of its own: all 256 come back with sign and payload kept.
TEST(Tanhf4, NanPayload)
{
    for (const auto& kernel : entry("tanhf4").kernels)
        for (std::uint32_t low = 0; low < 256; ++low) {
            const Vec128 x = words(0x7FC00000 | low, 0xFFC00000 | low, 0x7FFFFF00 | low, 0x3F800000);
            const Result result = call(kernel.address, x);
            for (int lane = 0; lane < 3; ++lane)
                EXPECT_EQ(result.first.u[lane], x.u[lane]) << kernel.symbol << " lane " << lane;
            EXPECT_EQ(result.flags & loud_flags, 0u);
        }
}

TEST(Tanhf4, SymmetryAndTiers)
{
    check_symmetry(entry("tanhf4").kernels, Symmetry::odd,
                   joined(sample_patterns(0x1p-30f, 20.0f, 6000), neighbours(10.0f, 10)));
}

TEST(Tanhf4, NeverExceedsOne)
{
    const auto arguments = joined(sample_interval(5.0f, 10.0f, 20000), neighbours(10.0f, 50));
    for (const auto& kernel : entry("tanhf4").kernels)
        for (const float x : arguments)
            EXPECT_LE(call(kernel.address, floats(x, x, x, x)).first.f[0], 1.0f) << kernel.symbol << ' ' << x;
}

// Rounding upward is left out: there the numerator cancels below 1/16, and only the absolute error stays
// small.
TEST(Tanhf4, DirectedRounding)
{
    const auto arguments =
        with_negatives(joined(sample_patterns(0x1p-20f, 10.0f, 4000), sample_interval(0.0f, 10.0f, 4000)));
    for (const auto& kernel : entry("tanhf4").kernels)
        for (const Rounding rounding : {Rounding::down, Rounding::zero})
            expect_error_within(6.5, worst_error(kernel.address, arguments, mpfr_unary(mpfr_tanh), rounding),
                                kernel.symbol, "rounding " + std::to_string(static_cast<unsigned>(rounding)));
}

} // namespace
} // namespace zelk::test
