// Single precision logarithms: natural, to base 2, to base 10.
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float largest = std::numeric_limits<float>::max();
constexpr float smallest = std::numeric_limits<float>::denorm_min();
constexpr float smallest_normal = std::numeric_limits<float>::min();
constexpr float quiet_nan = std::numeric_limits<float>::quiet_NaN();

// From here on the argument is halved before the series, below it isn't.
constexpr float split_point = __builtin_bit_cast(float, 0x3FB504F0u);

struct Base {
    const char* name;
    Unary exact;
    double bound_near_one;
    double bound_normal;
    double bound_subnormal;
    double bound_directed;
    std::vector<float> hardest;
};

const Base bases[] = {
    {"logf4",
     mpfr_unary(mpfr_log),
     1.02,
     1.08,
     1.04,
     2.55,
     {0x1.6863aap-1f, 0x1.6614b2p-21f, 0x1.740c9ep20f, 0x1.e355ccp-24f}},
    {"log2f4",
     mpfr_unary(mpfr_log2),
     2.12,
     2.12,
     0.55,
     3.42,
     {0x1.67c27ap0f, 0x1.686182p0f, 0x1.63ffa2p-15f, 0x1.66142ep0f}},
    {"log10f4",
     mpfr_unary(mpfr_log10),
     2.18,
     2.28,
     0.65,
     3.62,
     {0x1.8ffffep6f, 0x1.278efep0f, 0x1.cd2b2ep-54f, 0x1.47ae1ep-7f}},
};

TEST(Logf4, ErrorByPath)
{
    const float largest_subnormal = std::nextafter(smallest_normal, 0.0f);
    const auto near_one = joined(
        sample_interval(0.5f, 2.0f, 10000),
        joined(neighbours(1.0f, 500), joined(neighbours(split_point, 50), neighbours(split_point / 2, 50))));
    const auto normal =
        joined(sample_patterns(smallest_normal, largest, 5000), sample_patterns(0x1p-10f, 0x1p10f, 5000));
    const auto subnormal = joined(sample_patterns(smallest, largest_subnormal, 4000),
                                  std::vector<float>{0x1.cdp-140f, 0x1.94p-143f, 0x1.4cp-141f});
    for (const Base& base : bases) {
        const struct {
            const char* name;
            std::span<const float> arguments;
            double bound;
        } paths[] = {
            {"near 1", near_one, base.bound_near_one},
            {"normal", normal, base.bound_normal},
            {"hardest", base.hardest, base.bound_normal},
            {"subnormal", subnormal, base.bound_subnormal},
        };
        for (const auto& kernel : entry(base.name).kernels)
            for (const auto& path : paths)
                expect_error_within(path.bound, worst_error(kernel.address, path.arguments, base.exact),
                                    kernel.symbol, path.name);
    }
}

TEST(Logf4, ErrorInDirectedRounding)
{
    auto sample = joined(sample_patterns(smallest, largest, 2500), sample_patterns(0x1p-4f, 0x1p4f, 2500));
    std::erase(sample, 1.0f); // gives -0 when rounding down
    for (const Base& base : bases)
        for (const auto& kernel : entry(base.name).kernels)
            expect_directed_error_within(base.bound_directed, kernel, joined(sample, base.hardest),
                                         base.exact);
}

TEST(Logf4, OneGivesZero)
{
    for (const Base& base : bases)
        for (const auto& kernel : entry(base.name).kernels)
            // Alone and beside a special lane.
            for (const float other : {1.0f, smallest, infinity}) {
                const Result result = call(kernel.address, floats(1.0f, other, 1.0f, 1.0f));
                EXPECT_EQ(result.first.u[0] | result.first.u[2] | result.first.u[3], 0u)
                    << kernel.symbol << hex(result.first);
            }
}

TEST(Logf4, PowersOfTwoAreExact)
{
    for (const auto& kernel : entry("log2f4").kernels)
        for (const Rounding rounding : all_roundings)
            for (int n = -149; n <= 127; ++n) {
                if (n == 0) continue;
                const float x = std::ldexp(1.0f, n);
                const auto k = static_cast<float>(n);
                const Result result = call(kernel.address, floats(x, x, x, x), {}, {}, nullptr, rounding);
                EXPECT_TRUE(same_bits(result.first, floats(k, k, k, k)))
                    << kernel.symbol << ' ' << n << hex(result.first);
            }
}

TEST(Logf4, SpecialLanes)
{
    const Special<float> cases[] = {
        {"+inf", infinity, infinity},
        {"+0", 0.0f, -infinity},
        {"-0", -0.0f, -infinity},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_f, quiet_nan, flag_invalid},
        {"-1", -1.0f, quiet_nan},
        {"-smallest", -smallest, quiet_nan},
        {"-largest", -largest, quiet_nan},
        {"-inf", -infinity, quiet_nan},
    };
    for (const Base& base : bases)
        for (const auto& kernel : entry(base.name).kernels)
            for (const float ordinary : {0.7f, 0x1p-130f})
                check_specials(kernel, cases, ordinary, OrdinaryLanes::keep_bits);
}

// A NaN keeps its sign and payload; a negative argument gives all ones, whatever the rounding mode.
TEST(Logf4, NanPatterns)
{
    const struct {
        Vec128 x;
        Vec128 expected;
    } cases[] = {
        {words(0xFFC12345, 0x7F812345, 0x7FC00001, 0xFF800001),
         words(0xFFC12345, 0x7FC12345, 0x7FC00001, 0xFFC00001)},
        {words(0x80000001, 0xBF800000, 0xFF7FFFFF, 0xFF800000), words(~0u, ~0u, ~0u, ~0u)},
    };
    for (const Base& base : bases)
        for (const auto& kernel : entry(base.name).kernels)
            for (const Rounding rounding : all_roundings)
                for (const auto& nans : cases) {
                    const Result result = call(kernel.address, nans.x, {}, {}, nullptr, rounding);
                    EXPECT_TRUE(same_bits(result.first, nans.expected)) << kernel.symbol << hex(result.first);
                }
}

TEST(Logf4, LanesAreIndependent)
{
    const std::uint32_t arguments[] = {
        0x00000000, 0x80000000, 0x00400000, 0x00800000, 0x80800000, // zeros, subnormal, smallest normal
        0x3F800000, 0x3FB504F0, 0x40000000, 0xBF800000,             // 1, the split, ordinary, negative
        0x7F7FFFFF, 0xFF7FFFFF, 0x7FC00000, 0xFFC00000,             // largest, infinite, NaN
    };
    for (const Base& base : bases)
        for (const auto& kernel : entry(base.name).kernels)
            check_lanes_independent(kernel, arguments);
}

TEST(Logf4, TiersAgree)
{
    const auto arguments = with_negatives(sample_patterns(smallest, largest, 4000));
    for (const Base& base : bases)
        check_same_results(entry(base.name).kernels, arguments);
}

} // namespace
} // namespace zelk::test
