// Single precision exponential.
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float largest = std::numeric_limits<float>::max();
constexpr float smallest = std::numeric_limits<float>::denorm_min();
constexpr float quiet_nan = std::numeric_limits<float>::quiet_NaN();

// Tier A: end of the fast path, first infinite result, first zero result.
constexpr float bound_a = 0x1.5d589ep6f;
constexpr float first_infinite = 0x1.62e43p6f;
constexpr float first_zero = -0x1.9fe36ap6f;
// The other tiers: end of the fast path, first argument whose result is a square.
constexpr float bound_l = 86.5f;
constexpr float bound_square = 105.0f;

const Unary exact_exp = mpfr_unary(mpfr_exp);

std::vector<Kernel> kernels_but_tier_a()
{
    std::vector<Kernel> kernels = entry("expf4").kernels;
    std::erase_if(kernels, [](const Kernel& kernel) { return kernel.tier == 'A'; });
    return kernels;
}

TEST(Expf4, ErrorByPath)
{
    const float last_finite = std::nextafter(first_infinite, 0.0f);
    const float last_nonzero = std::nextafter(first_zero, 0.0f);
    const struct {
        const char* name;
        std::vector<float> arguments;
        double bound_a;
        double bound_others;
    } paths[] = {
        {"tiny", with_negatives(sample_patterns(smallest, 0x1p-8f, 4000)), 0.51, 1.2},
        {"fast", with_negatives(sample_interval(0x1p-8f, bound_l, 15000)), 0.57, 3.22},
        {"hardest tiny", {-0x1.713e06p-9f, -0x1.ff01p-9f}, 0.51, 1.2},
        {"hardest", {-0x1.5aad64p6f, -0x1.bebc8ap-6f, 0x1.600512p6f, 0x1.5d47ap6f}, 0.57, 3.22},
        {"hardest subnormal results", {-0x1.5f53dap6f, -0x1.5da0d6p6f}, 0.77, 1.7},
        {"next to overflow",
         joined(sample_interval(bound_l, last_finite, 10000),
                joined(neighbours(bound_a, 20), neighbours(std::nextafter(last_finite, 0.0f), 1))),
         0.57, 2.5},
        {"next to underflow", joined(sample_interval(-bound_l, -bound_a, 5000), neighbours(-bound_l, 20)),
         0.57, 3.22},
        {"subnormal results",
         joined(sample_interval(-bound_a, last_nonzero, 20000), neighbours(-bound_a, 20)), 0.77, 1.7},
        {"zero results", neighbours(first_zero, 20), 0.57, 0.57},
    };
    for (const auto& path : paths)
        for (const auto& kernel : entry("expf4").kernels)
            expect_error_within(kernel.tier == 'A' ? path.bound_a : path.bound_others,
                                worst_error(kernel.address, path.arguments, exact_exp), kernel.symbol,
                                path.name);
}

TEST(Expf4, ErrorInDirectedRounding)
{
    const auto arguments =
        joined(sample_interval(-103.0f, 88.7f, 20000), with_negatives(sample_patterns(smallest, 1.0f, 2000)));
    for (const auto& kernel : entry("expf4").kernels)
        expect_directed_error_within(kernel.tier == 'A' ? 1.12 : 8.6, kernel, arguments, exact_exp);
}

TEST(Expf4, ZeroGivesOne)
{
    for (const auto& kernel : entry("expf4").kernels)
        for (const Rounding rounding : all_roundings) {
            const Result result =
                call(kernel.address, floats(0.0f, -0.0f, 0.0f, -0.0f), {}, {}, nullptr, rounding);
            EXPECT_TRUE(same_bits(result.first, floats(1, 1, 1, 1))) << kernel.symbol << hex(result.first);
            EXPECT_EQ(result.flags, 0u) << kernel.symbol;
        }
}

// Tier A writes infinities and zeros; the other tiers overflow in arithmetic.
TEST(Expf4, SpecialLanes)
{
    const Special<float> everywhere[] = {
        {"+inf", infinity, infinity},
        {"-inf", -infinity, 0.0f},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_f, quiet_nan, flag_invalid},
    };
    const Special<float> tier_a[] = {
        {"first infinite", first_infinite, infinity},
        {"largest", largest, infinity},
        {"first zero", first_zero, 0.0f},
        {"-largest", -largest, 0.0f},
    };
    const float below_square = std::nextafter(bound_square, 0.0f);
    const Special<float> smallest_result[] = {{"last nonzero", std::nextafter(first_zero, 0.0f), smallest}};
    const Special<float> others_nearest[] = {
        {"first infinite", first_infinite, infinity, flag_overflow},
        {"below 105", below_square, infinity, flag_overflow},
        {"105", bound_square, infinity, flag_overflow},
        {"largest", largest, infinity, flag_overflow},
        {"first zero", first_zero, 0.0f},
        {"above -105", -below_square, 0.0f},
        {"-105", -bound_square, 0.0f},
        {"-largest", -largest, 0.0f},
    };
    const Special<float> others_to_zero[] = {
        {"below 105", below_square, largest, flag_overflow},
        {"105", bound_square, largest, flag_overflow},
        {"largest", largest, largest, flag_overflow},
        {"above -105", -below_square, 0.0f},
        {"-105", -bound_square, 0.0f},
    };
    const Special<float> others_up[] = {
        {"105", bound_square, infinity, flag_overflow},
        {"above -105", -below_square, smallest},
        {"-105", -bound_square, smallest},
    };
    constexpr Rounding nearest[] = {Rounding::nearest};
    constexpr Rounding to_zero[] = {Rounding::down, Rounding::zero};
    constexpr Rounding up[] = {Rounding::up};
    for (const auto& kernel : entry("expf4").kernels) {
        check_specials(kernel, everywhere, -1.25f, OrdinaryLanes::keep_bits);
        check_specials(kernel, smallest_result, -1.25f, OrdinaryLanes::keep_bits, nearest);
        if (kernel.tier == 'A') {
            check_specials(kernel, tier_a, -1.25f, OrdinaryLanes::keep_bits);
            continue;
        }
        check_specials(kernel, others_nearest, -1.25f, OrdinaryLanes::keep_bits, nearest);
        check_specials(kernel, others_to_zero, -1.25f, OrdinaryLanes::keep_bits, to_zero);
        check_specials(kernel, others_up, -1.25f, OrdinaryLanes::keep_bits, up);
    }
}

// A NaN keeps its sign and payload.
TEST(Expf4, NanPayload)
{
    for (const auto& kernel : entry("expf4").kernels) {
        const Result result = call(kernel.address, words(0xFFC12345, 0x7F812345, 0x7FC00001, 0xFF800001));
        EXPECT_TRUE(same_bits(result.first, words(0xFFC12345, 0x7FC12345, 0x7FC00001, 0xFFC00001)))
            << kernel.symbol << hex(result.first);
    }
}

TEST(Expf4, LanesAreIndependent)
{
    const std::uint32_t arguments[] = {
        0x00000000, 0x80000000, 0x3F800000, 0xC1234567,             // zeros, ordinary
        0x42AD0000, 0xC2AD0000, 0x42AEAC4F, 0xC2AEAC4F,             // 86.5, 87.3365402
        0x42B17218, 0xC2CFF1B5, 0x42D20000, 0xC2D20000,             // first infinite, first zero, 105
        0x7F7FFFFF, 0xFF7FFFFF, 0x7FC00000, 0xFFC00000, 0xC2C00000, // largest, infinite, NaN, -96
    };
    for (const auto& kernel : entry("expf4").kernels)
        check_lanes_independent(kernel, arguments);
}

TEST(Expf4, TiersAgree)
{
    const auto arguments =
        joined(sample_interval(-110.0f, 110.0f, 4000), sample_patterns(smallest, largest, 4000));
    check_same_results(kernels_but_tier_a(), arguments);
}

} // namespace
} // namespace zelk::test
