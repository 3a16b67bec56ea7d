// Single precision 2^x.
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

constexpr float bound = 123.5f;
const Unary exact_exp2 = mpfr_unary(mpfr_exp2);

TEST(Exp2f4, ErrorByPath)
{
    const float below_128 = std::nextafter(128.0f, 0.0f);
    const float above_minus_150 = std::nextafter(-150.0f, 0.0f);
    const struct {
        const char* name;
        std::vector<float> arguments;
        double bound;
    } paths[] = {
        {"tiny", with_negatives(sample_patterns(smallest, 0x1p-8f, 4000)), 2.03},
        {"fast", with_negatives(sample_interval(0x1p-8f, bound, 20000)), 2.56},
        {"hardest tiny", {-0x1.fd92e8p-9f}, 2.03},
        {"hardest", {-0x1.0ec4e4p-4f, 0x1.efbc2p6f}, 2.56},
        {"hardest subnormal result", {-0x1.f843ep6f}, 1.8},
        {"next to overflow",
         joined(sample_interval(bound, below_128, 10000),
                joined(neighbours(bound, 20), neighbours(128.0f, 20))),
         2.56},
        {"next to underflow", joined(sample_interval(-bound, -126.0f, 5000), neighbours(-bound, 20)), 2.56},
        {"subnormal results",
         joined(sample_interval(-126.0f, above_minus_150, 20000), neighbours(-126.0f, 20)), 1.8},
    };
    for (const auto& path : paths)
        for (const auto& kernel : entry("exp2f4").kernels)
            expect_error_within(path.bound, worst_error(kernel.address, path.arguments, exact_exp2),
                                kernel.symbol, path.name);
}

TEST(Exp2f4, ErrorInDirectedRounding)
{
    const auto arguments = sample_interval(-149.0f, std::nextafter(128.0f, 0.0f), 20000);
    for (const auto& kernel : entry("exp2f4").kernels)
        expect_directed_error_within(6.7, kernel, arguments, exact_exp2);
}

TEST(Exp2f4, IntegersAreExact)
{
    for (const auto& kernel : entry("exp2f4").kernels)
        for (int n = -149; n <= 127; ++n) {
            // Beside zero and a subnormal number, which count as zero.
            const Result result =
                call(kernel.address, floats(static_cast<float>(n), -0.0f, smallest, -0x1.fffffcp-127f));
            EXPECT_TRUE(same_bits(result.first, floats(std::ldexp(1.0f, n), 1, 1, 1)))
                << kernel.symbol << ' ' << n << ' ' << hex(result.first);
        }
}

// All of them are written as patterns and raise nothing; a signalling NaN comes back as it is.
TEST(Exp2f4, SpecialLanes)
{
    const Special<float> cases[] = {
        {"+inf", infinity, infinity}, {"128", 128.0f, infinity}, {"largest", largest, infinity},
        {"-inf", -infinity, 0.0f},    {"-150", -150.0f, 0.0f},   {"-largest", -largest, 0.0f},
    };
    for (const auto& kernel : entry("exp2f4").kernels) {
        check_specials(kernel, cases, -1.25f, OrdinaryLanes::keep_bits);
        const Vec128 nans = words(0x7FC12345, 0xFFC00001, 0x7F812345, 0xFF800001);
        const Result result = call(kernel.address, nans);
        EXPECT_TRUE(same_bits(result.first, nans)) << kernel.symbol << hex(result.first);
        EXPECT_EQ(flag_names(result.flags), "none") << kernel.symbol;
    }
}

TEST(Exp2f4, LanesAreIndependent)
{
    const std::uint32_t arguments[] = {
        0x00000000, 0x80000000, 0x007FFFFF, 0x807FFFFF, 0x3F800000, // zeros, subnormal, ordinary
        0xC1234567, 0x42F70000, 0xC2F70000, 0x43000000, 0xC2FC0000, // 123.5, 128, -126
        0xC3160000, 0x7F7FFFFF, 0xFF7FFFFF, 0x7FC00000, 0xFFC00000, // -150, largest, infinite, NaN
    };
    for (const auto& kernel : entry("exp2f4").kernels)
        check_lanes_independent(kernel, arguments);
}

TEST(Exp2f4, TiersAgree)
{
    const auto arguments =
        joined(sample_interval(-155.0f, 130.0f, 4000), sample_patterns(smallest, largest, 4000));
    check_same_results(entry("exp2f4").kernels, arguments);
}

} // namespace
} // namespace zelk::test
