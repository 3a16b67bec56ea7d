// Single precision sine and cosine.
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float largest = std::numeric_limits<float>::max();
constexpr float quiet_nan = std::numeric_limits<float>::quiet_NaN();

TEST(SinCosf4, ErrorByPath)
{
    const float above_10000 = std::nextafter(10000.0f, infinity);
    const float above_2_30 = std::nextafter(0x1p30f, infinity);
    const struct {
        const char* name;
        std::vector<float> arguments;
        double bound_sin;
        double bound_cos;
    } paths[] = {
        // bounds: the largest errors over all arguments, rounded up
        {"tiny", sample_patterns(0x1p-149f, 0x1p-20f, 10000), 0.51, 1.01},
        {"binary32",
         joined(sample_patterns(0x1p-20f, 10000.0f, 20000), sample_interval(0x1p-20f, 10000.0f, 20000)), 2.48,
         2.41},
        {"binary64", sample_patterns(above_10000, 0x1p30f, 20000), 2.14, 2.14},
        {"scalar", sample_patterns(above_2_30, largest, 20000), 0.55, 0.55},
    };
    for (const auto& path : paths) {
        const auto arguments = with_negatives(path.arguments);
        for (const auto& kernel : entry("sinf4").kernels)
            expect_error_within(path.bound_sin, worst_error(kernel.address, arguments, mpfr_unary(mpfr_sin)),
                                kernel.symbol, path.name);
        for (const auto& kernel : entry("cosf4").kernels)
            expect_error_within(path.bound_cos, worst_error(kernel.address, arguments, mpfr_unary(mpfr_cos)),
                                kernel.symbol, path.name);
    }
}

// 10000 < |x| < 2^15 takes the scalar routine only beside a lane beyond 2^30.
TEST(SinCosf4, ScalarRoutineBelow2To15)
{
    auto arguments = sample_patterns(10000.5f, 0x1p30f, 4000);
    for (std::size_t i = 0; i < arguments.size(); i += 4)
        arguments[i] = 0x1p31f;
    for (const auto& kernel : entry("sinf4").kernels)
        expect_error_within(0.55, worst_error(kernel.address, arguments, mpfr_unary(mpfr_sin)), kernel.symbol,
                            "scalar, beside a huge lane");
    for (const auto& kernel : entry("cosf4").kernels)
        expect_error_within(0.55, worst_error(kernel.address, arguments, mpfr_unary(mpfr_cos)), kernel.symbol,
                            "scalar, beside a huge lane");
}

TEST(SinCosf4, SpecialLanes)
{
    const Special<float> sine[] = {
        {"+inf", infinity, quiet_nan, flag_invalid},
        {"-inf", -infinity, quiet_nan, flag_invalid},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_f, quiet_nan, flag_invalid},
        {"+0", 0.0f, 0.0f},
    };
    for (const auto& kernel : entry("sinf4").kernels)
        check_specials(kernel, sine, 1.25f, OrdinaryLanes::keep_bits, {all_roundings, 1});
    Special<float> cosine[std::size(sine)];
    std::copy(std::begin(sine), std::end(sine), cosine);
    cosine[4].expected = 1.0f;
    for (const auto& kernel : entry("cosf4").kernels)
        check_specials(kernel, cosine, 1.25f, OrdinaryLanes::keep_bits, {all_roundings, 1});
}

// A quiet NaN keeps its sign and payload.
TEST(SinCosf4, NanPayload)
{
    for (const char* name : {"sinf4", "cosf4"})
        for (const auto& kernel : entry(name).kernels) {
            const Result result = call(kernel.address, words(0xFFC12345, 0x7F812345, 0x7FC00001, 0));
            EXPECT_EQ(result.first.u[0], 0xFFC12345u) << kernel.symbol;
            EXPECT_EQ(result.first.u[1], 0x7FC12345u) << kernel.symbol;
            EXPECT_EQ(result.first.u[2], 0x7FC00001u) << kernel.symbol;
        }
}

// Which path a lane takes depends on the vector; ordinary lanes keep their bits in all of them, and only the
// arithmetic's own flags are raised.
TEST(SinCosf4, MixedVectors)
{
    const float above_10000 = std::nextafter(10000.0f, infinity);
    const float above_2_30 = std::nextafter(0x1p30f, infinity);
    const float candidates[] = {1.0f,    -9999.5f, 10000.0f, -10000.0f,  above_10000, -12345.0f,
                                0x1p20f, 0x1p30f,  -0x1p30f, above_2_30, largest,     -largest};
    for (const char* name : {"sinf4", "cosf4"}) {
        for (const auto& kernel : entry(name).kernels) {
            for (const float special : candidates) {
                for (unsigned mask = 1; mask < 16; ++mask) {
                    Vec128 x = floats(0.75f, -3.0f, 9999.0f, 1e-30f);
                    const Result ordinary = call(kernel.address, x);
                    for (unsigned lane = 0; lane < 4; ++lane)
                        if (mask >> lane & 1) x.f[lane] = special;
                    const Result alone = call(kernel.address, floats(special, special, special, special));
                    const Result mixed = call(kernel.address, x);
                    EXPECT_EQ(mixed.flags & (loud_flags), 0u) << kernel.symbol << hex(x);
                    for (unsigned lane = 0; lane < 4; ++lane)
                        EXPECT_EQ(mixed.first.u[lane],
                                  mask >> lane & 1 ? alone.first.u[lane] : ordinary.first.u[lane])
                            << kernel.symbol << ' ' << hex(x) << " lane " << lane;
                }
            }
        }
    }
}

// sin is odd beyond the bound, cos even everywhere; every tier gives the same bits.
TEST(SinCosf4, SymmetryAndTiers)
{
    const auto arguments = joined(sample_patterns(0x1p-149f, largest, 8000), neighbours(10000.0f, 50));
    for (std::size_t i = 0; i + 4 <= arguments.size(); i += 4) {
        const Vec128 x = floats(arguments[i], arguments[i + 1], arguments[i + 2], arguments[i + 3]);
        Vec128 minus_x = x;
        for (auto& lane : minus_x.u)
            lane |= 0x80000000;
        const Result common_cosine = call(entry("cosf4").kernels.back().address, x);
        const Result common_sine = call(entry("sinf4").kernels.back().address, x);
        for (const auto& kernel : entry("cosf4").kernels) {
            const Result cosine = call(kernel.address, x);
            EXPECT_TRUE(kernel.lane_loop || same_bits(cosine.first, common_cosine.first)) << hex(x);
            EXPECT_TRUE(same_bits(cosine.first, call(kernel.address, minus_x).first)) << hex(x);
        }
        for (const auto& kernel : entry("sinf4").kernels) {
            const Result sine = call(kernel.address, x);
            EXPECT_TRUE(kernel.lane_loop || same_bits(sine.first, common_sine.first)) << hex(x);
            Result mirrored = call(kernel.address, minus_x);
            for (auto& lane : mirrored.first.u)
                lane ^= 0x80000000;
            EXPECT_TRUE(same_bits(sine.first, mirrored.first)) << hex(x);
        }
    }
}

TEST(SinCosf4, Landmarks)
{
    for (const auto& kernel : entry("sinf4").kernels) {
        const Result zeros = call(kernel.address, floats(0.0f, -0.0f, 0.0f, -0.0f));
        EXPECT_TRUE(same_bits(zeros.first, Vec128{})) << kernel.symbol; // sin(-0) is +0 on the binary32 path
        EXPECT_EQ(zeros.flags, 0u) << kernel.symbol;
    }
    for (const auto& kernel : entry("cosf4").kernels)
        EXPECT_TRUE(
            same_bits(call(kernel.address, floats(0.0f, -0.0f, 0.0f, -0.0f)).first, floats(1, 1, 1, 1)))
            << kernel.symbol;
}

} // namespace
} // namespace zelk::test
