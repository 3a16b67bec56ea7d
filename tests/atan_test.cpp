// Arc tangent of one argument, vectors of both precisions (atan2 is arctan x on two binary64 lanes).
#include "remembered.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <limits>

namespace zelk::test {
namespace {

constexpr float largest_f = std::numeric_limits<float>::max();
constexpr double largest = std::numeric_limits<double>::max();

TEST(Atan, ErrorByPath)
{
    const Unary arctangent = remembered(mpfr_unary(mpfr_atan));
    const struct {
        const char* name;
        std::vector<float> singles;
        double bound_single;
        std::vector<double> doubles;
        double bound_double;
    } paths[] = {
        // single precision bounds: the largest errors over all arguments, rounded up
        {"tiny", sample_patterns(0x1p-149f, 0x1p-13f, 4000), 0.1, sample_patterns(0x1p-1074, 0x1p-27, 3000),
         0.2},
        {"up to 1", joined(sample_patterns(0x1p-13f, 1.0f, 8000), sample_interval(0x1p-13f, 1.0f, 12000)),
         3.76, joined(sample_patterns(0x1p-27, 1.0, 4000), sample_interval(0x1p-27, 1.0, 10000)), 4.1},
        {"around 1", neighbours(1.0f, 200), 3.76, neighbours(1.0, 200), 4.75},
        {"beyond 1", joined(sample_patterns(1.0f, largest_f, 4000), sample_interval(1.0f, 8.0f, 12000)), 3.37,
         joined(sample_patterns(1.0, largest, 3000), sample_interval(1.0, 8.0, 10000)), 4.75},
    };
    for (const auto& path : paths) {
        for (const auto& kernel : entry("atanf4").kernels)
            expect_error_within(path.bound_single,
                                worst_error(kernel.address, with_negatives(path.singles), arctangent),
                                kernel.symbol, path.name);
        for (const auto& kernel : entry("atan2").kernels)
            expect_error_within(path.bound_double,
                                worst_error(kernel.address, with_negatives(path.doubles), arctangent),
                                kernel.symbol, path.name);
    }
}

TEST(Atan, DirectedRounding)
{
    const auto singles =
        with_negatives(joined(sample_interval(0x1p-13f, 1.0f, 1500), sample_interval(1.0f, 8.0f, 1500)));
    const auto doubles =
        with_negatives(joined(sample_interval(0x1p-27, 1.0, 1500), sample_interval(1.0, 8.0, 1500)));
    const Unary arctangent = remembered(mpfr_unary(mpfr_atan));
    for (const auto& kernel : entry("atanf4").kernels)
        expect_directed_error_within(6.5, kernel, singles, arctangent);
    for (const auto& kernel : entry("atan2").kernels)
        expect_directed_error_within(8, kernel, doubles, arctangent);
}

TEST(Atan, SpecialLanes)
{
    constexpr float infinity_f = std::numeric_limits<float>::infinity();
    constexpr float nan_f = std::numeric_limits<float>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const Special<float> singles[] = {
        {"0", 0.0f, 0.0f},
        {"-0", -0.0f, -0.0f},
        {"inf", infinity_f, 0x1.921fb6p0f},
        {"-inf", -infinity_f, -0x1.921fb6p0f},
        {"NaN", nan_f, nan_f},
        {"-NaN", -nan_f, nan_f},
        {"signalling NaN", signalling_nan_f, nan_f, flag_invalid},
    };
    const Special<double> doubles[] = {
        {"0", 0.0, 0.0},
        {"-0", -0.0, -0.0},
        {"inf", infinity, 0x1.921fb54442d18p0},
        {"-inf", -infinity, -0x1.921fb54442d18p0},
        {"NaN", nan, nan},
        {"-NaN", -nan, nan},
        {"signalling NaN", signalling_nan_d, nan, flag_invalid},
    };
    // In round to nearest only: subnormal arguments come back as they are.
    const Special<float> nearest_singles[] = {{"smallest", 0x1p-149f, 0x1p-149f},
                                              {"subnormal", -0x1.8p-127f, -0x1.8p-127f}};
    // By way of 1/x it would be 0x1.921fb4p-1.
    const Special<float> one[] = {{"1", 1.0f, 0x1.921fb8p-1f}};
    const Special<float> one_rounded_once[] = {{"1", 1.0f, 0x1.921fb6p-1f}};
    const Special<double> nearest_doubles[] = {{"smallest", 0x1p-1074, 0x1p-1074},
                                               {"subnormal", -0x1.8p-1023, -0x1.8p-1023}};
    const std::span nearest = std::span(all_roundings).first(1);
    for (const float ordinary : {0.625f, -2.5f}) {
        for (const auto& kernel : entry("atanf4").kernels) {
            check_specials(kernel, singles, ordinary, OrdinaryLanes::keep_bits);
            check_specials(kernel, nearest_singles, ordinary, OrdinaryLanes::keep_bits, nearest);
            check_specials(kernel, kernel.lane_loop ? one_rounded_once : one, ordinary,
                           OrdinaryLanes::keep_bits, nearest);
        }
        for (const auto& kernel : entry("atan2").kernels) {
            check_specials(kernel, doubles, double{ordinary}, OrdinaryLanes::keep_bits);
            check_specials(kernel, nearest_doubles, double{ordinary}, OrdinaryLanes::keep_bits, nearest);
        }
    }
}

// In round to nearest every tier gives the same bits, though A and L sum in another order, and arctan is odd.
TEST(Atan, SymmetryAndTiers)
{
    const auto singles = joined(sample_patterns(0x1p-149f, largest_f, 8000), neighbours(1.0f, 50));
    const auto& kernels_f = entry("atanf4").kernels;
    for (std::size_t i = 0; i + 4 <= singles.size(); i += 4) {
        const Vec128 x = floats(singles[i], singles[i + 1], singles[i + 2], singles[i + 3]);
        const Vec128 minus_x = floats(-singles[i], -singles[i + 1], -singles[i + 2], -singles[i + 3]);
        const Result common = call(kernels_f.back().address, x);
        for (const auto& kernel : kernels_f) {
            const Result expected = kernel.lane_loop ? call(kernel.address, x) : common;
            EXPECT_TRUE(same_bits(call(kernel.address, x).first, expected.first)) << kernel.symbol << hex(x);
            Result mirrored = call(kernel.address, minus_x);
            for (auto& lane : mirrored.first.u)
                lane ^= 0x80000000;
            EXPECT_TRUE(same_bits(mirrored.first, expected.first)) << kernel.symbol << hex(minus_x);
        }
    }
    const auto doubles_ = joined(sample_patterns(0x1p-1074, largest, 8000), neighbours(1.0, 50));
    const auto& kernels = entry("atan2").kernels;
    for (std::size_t i = 0; i + 2 <= doubles_.size(); i += 2) {
        const Vec128 x = doubles(doubles_[i], doubles_[i + 1]);
        const Result expected = call(kernels[0].address, x);
        for (const auto& kernel : kernels) {
            EXPECT_TRUE(same_bits(call(kernel.address, x).first, expected.first)) << kernel.symbol << hex(x);
            Result mirrored = call(kernel.address, doubles(-doubles_[i], -doubles_[i + 1]));
            for (auto& lane : mirrored.first.q)
                lane ^= std::uint64_t{1} << 63;
            EXPECT_TRUE(same_bits(mirrored.first, expected.first)) << kernel.symbol << hex(x);
        }
    }
}

} // namespace
} // namespace zelk::test
