// Single precision power.
#include "power_cases.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr float infinity = test::infinity<float>;
constexpr float largest = test::largest<float>;
constexpr float smallest = test::smallest<float>;
constexpr float quiet_nan = test::quiet_nan<float>;
constexpr float above_1 = test::above_1<float>;
constexpr float below_1 = test::below_1<float>;

TEST(Powf4, ErrorByPath)
{
    const float below_subnormal = 0x1p-126f - 2 * smallest;
    // The logarithm has a relative error of 1.6e-11, which y next to 128/log2(x) turns into 0.023 ulp; 2^w
    // adds 0.031.
    const struct {
        const char* name;
        PowerArguments<float> arguments;
        double bound;
    } paths[] = {
        {"any x", power_arguments(0x1p-126f, largest, -125.99, 127.99, 30000), 0.54},
        {"x below 1", power_arguments(0.9f, below_1, -125.99, 127.99, 10000), 0.554},
        {"x above 1", power_arguments(above_1, 1.1f, -125.99, 127.99, 10000), 0.554},
        {"subnormal results", power_arguments(0x1p-126f, largest, -150.5, -126, 10000), 0.54},
        {"subnormal x", power_arguments(smallest, below_subnormal, -148.9, 127.99, 10000), 0.54},
        {"negative x", negative_bases(smallest, largest, -125, 127, 10000), 0.54},
        {"negative x near 1", negative_bases(0.5f, 2.0f, -125, 127, 5000), 0.54},
    };
    for (const auto& path : paths)
        for (const auto& kernel : entry("powf4").kernels)
            expect_error_within(
                path.bound,
                worst_error(kernel.address, path.arguments.x, path.arguments.y, mpfr_binary(mpfr_pow)),
                kernel.symbol, path.name);
}

// The largest subnormal x is taken for 2^-126 (1 - 2^-24), which is half way to 2^-126: half a step too much.
TEST(Powf4, LargestSubnormalBase)
{
    const std::vector<float> x(9, 0x1p-126f - smallest);
    const std::vector<float> y = {-1, -0.9f, -0.5f, -0.01f, 0.01f, 0.25f, 0.5f, 0.9f, 0.99f};
    for (const auto& kernel : entry("powf4").kernels)
        expect_error_within(1.5, worst_error(kernel.address, x, y, mpfr_binary(mpfr_pow)), kernel.symbol,
                            "largest subnormal x");
}

// What holds in every rounding mode.
const Special<float> specials[] = {
    {"NaN^NaN", quiet_nan, quiet_nan, 0, quiet_nan},
    {"signalling NaN^2", signalling_nan_f, quiet_nan, 0, 2.0f},
    {"2^signalling NaN", 2.0f, quiet_nan, 0, signalling_nan_f},
    {"-largest^-8388607.5", -largest, quiet_nan, flag_invalid, -8388607.5f},
    {"10^300", 10.0f, infinity, 0, 300.0f},
    {"10^-300", 10.0f, 0.0f, 0, -300.0f},
    {"-10^301", -10.0f, -infinity, 0, 301.0f},
    {"-10^-301", -10.0f, -0.0f, 0, -301.0f},
    {"-10^300", -10.0f, infinity, 0, 300.0f},
};

TEST(Powf4, SpecialLanes)
{
    for (const auto& kernel : entry("powf4").kernels) {
        check_specials(kernel, power_specials<float>, 1.7f, OrdinaryLanes::keep_bits, all_roundings, 2.3f);
        check_specials(kernel, specials, 1.7f, OrdinaryLanes::keep_bits, all_roundings, 2.3f);
    }
}

TEST(Powf4, NanPattern)
{
    for (const auto& kernel : entry("powf4").kernels) {
        const Result result =
            call(kernel.address, words(0xFFC12345, 0x3F800001, 0xC0000000, 0x7F800001), // NaN, 1+, -2, NaN
                 words(0x3F800000, 0xFFC00000, 0x3F000000, 0x7F800000));                // 1, NaN, 0.5, inf
        EXPECT_TRUE(same_bits(result.first, words(0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF)))
            << kernel.symbol << ' ' << hex(result.first);
    }
}

// Where a result leaves the range of binary32 the conversion says so; beyond 2^708 and 2^-708 nothing does.
TEST(Powf4, RangeFlags)
{
    const struct {
        float x, y, expected;
        unsigned flags; // of loud ones and underflow
    } rows[] = {
        {2, 127, 0x1p127f, 0},
        {2, 128, infinity, flag_overflow},
        {2, 200, infinity, flag_overflow},
        {2, 708, infinity, flag_overflow},
        {2, 708.00042f, infinity, flag_overflow}, // the last with the high word of 708
        {2, 708.0005f, infinity, 0},
        {0.5f, -708, infinity, flag_overflow},
        {0.5f, -708.0005f, infinity, 0},
        {2, -126, 0x1p-126f, 0},
        {2, -149, smallest, flag_underflow}, // 2^f is 1 + 5.5e-10 for f = 0; in 80 bits it is exact
        {2, -150.5f, 0, flag_underflow},
        {2, -708, 0, flag_underflow},
        {2, -708.00042f, 0, flag_underflow},
        {2, -708.0005f, 0, 0},
        {-2, 127, -0x1p127f, 0},
        {-2, 128, infinity, flag_overflow},
        {-2, 129, -infinity, flag_overflow},
        {-2, 707, -infinity, flag_overflow},
        {-2, 708, infinity, 0},
        {-2, 709, -infinity, 0},
        {-2, -149, -smallest, flag_underflow},
        {-2, -151, -0.0f, flag_underflow},
        {-2, -707, -0.0f, flag_underflow},
        {-2, -708, 0, 0},
        {-2, -709, -0.0f, 0},
    };
    for (const auto& kernel : entry("powf4").kernels)
        for (const auto& row : rows)
            for (unsigned lane = 0; lane < 4; ++lane) {
                Vec128 x = floats(3, 3, 3, 3);
                Vec128 y = floats(-4, -4, -4, -4);
                x.f[lane] = row.x;
                y.f[lane] = row.y;
                const Result result = call(kernel.address, x, y);
                EXPECT_EQ(result.first.u[lane], std::bit_cast<std::uint32_t>(row.expected))
                    << kernel.symbol << ' ' << row.x << '^' << row.y << " gives " << hex(result.first);
                const bool exact = kernel.lane_loop && row.y == -149;
                EXPECT_EQ(flag_names(result.flags & (loud_flags | flag_underflow)),
                          flag_names(exact ? 0 : row.flags))
                    << kernel.symbol << ' ' << row.x << '^' << row.y << " lane " << lane;
            }
}

// The edges of the paths, beside ordinary and special lanes: a lane's bits depend on that lane alone, and the
// flags are those of the lanes.
TEST(Powf4, MixedVectors)
{
    std::vector<float> xs = {2.0f, 0.3f, -3.0f, 0.0f, infinity, quiet_nan, -smallest};
    std::vector<float> ys = {3.0f, -0.7f, 2.0f, infinity, 0.5f, 1.0f, 0.25f};
    const auto add = [&](float centre, float y) {
        for (const float x : neighbours(centre, 2)) {
            xs.push_back(x);
            ys.push_back(y);
        }
    };
    add(0x1p-126f, 0.75f);
    add(1.4142131f, 90.0f);
    add(1.0f, 0x1p28f);
    add(largest, 0.99f);
    for (const float y : {127.0f, 128.0f, -126.0f, -149.0f, 708.0f, -708.0f, 710.0f})
        add(2.0f, y);
    Random random(4);
    for (const auto& kernel : entry("powf4").kernels) {
        std::vector<Result> alone;
        for (std::size_t i = 0; i < xs.size(); ++i)
            alone.push_back(
                call(kernel.address, floats(xs[i], xs[i], xs[i], xs[i]), floats(ys[i], ys[i], ys[i], ys[i])));
        for (int round = 0; round < 4000; ++round) {
            Vec128 x;
            Vec128 y;
            std::size_t index[4];
            unsigned flags = 0;
            for (std::size_t lane = 0; lane < 4; ++lane) {
                index[lane] = static_cast<std::size_t>(random.next() % xs.size());
                x.f[lane] = xs[index[lane]];
                y.f[lane] = ys[index[lane]];
                flags |= alone[index[lane]].flags;
            }
            const Result mixed = call(kernel.address, x, y);
            EXPECT_EQ(flag_names(mixed.flags & loud_flags), flag_names(flags & loud_flags))
                << kernel.symbol << hex(x) << hex(y);
            for (std::size_t lane = 0; lane < 4; ++lane)
                EXPECT_EQ(mixed.first.u[lane], alone[index[lane]].first.u[lane])
                    << kernel.symbol << hex(x) << hex(y) << " lane " << lane;
        }
    }
}

// Results that binary32 holds exactly come out exactly.
TEST(Powf4, Landmarks)
{
    for (const auto& kernel : entry("powf4").kernels) {
        const auto expect = [&](float x, float y, float expected) {
            const Result result = call(kernel.address, floats(x, x, x, x), floats(y, y, y, y));
            EXPECT_TRUE(same_bits(result.first, floats(expected, expected, expected, expected)))
                << kernel.symbol << ' ' << x << '^' << y << " gives " << hex(result.first);
            EXPECT_EQ(result.flags & loud_flags, 0u) << kernel.symbol << ' ' << x << '^' << y;
        };
        for (int n = -149; n <= 127; ++n) {
            const float power = std::ldexp(1.0f, n);
            expect(2.0f, static_cast<float>(n), power);
            expect(0.5f, static_cast<float>(-n), power);
            expect(-2.0f, static_cast<float>(n), n % 2 == 0 ? power : -power);
            expect(power, 1.0f, power);
            expect(power, 0.0f, 1.0f);
            expect(1.0f, power, 1.0f);
            expect(1.0f, -power, 1.0f);
        }
        for (int n = 2; n <= 255; ++n) {
            const auto base = static_cast<float>(n);
            expect(base, 3.0f, static_cast<float>(n * n * n));
            expect(-base, 3.0f, static_cast<float>(-n * n * n));
            expect(static_cast<float>(n * n), 0.5f, base);
            expect(static_cast<float>(n * n), 1.5f, static_cast<float>(n * n * n));
        }
        for (const float x : sample_patterns(0x1p-126f, largest, 500)) {
            expect(x, 1.0f, x);
            expect(-x, 1.0f, -x);
            expect(x, -0.0f, 1.0f);
            expect(1.0f, -x, 1.0f);
        }
    }
}

// Which y is an odd, an even or no integer shows in the powers of -1.
TEST(Powf4, Parity)
{
    const struct {
        float y, expected;
    } rows[] = {
        {1.0f, -1},
        {2.0f, 1},
        {3.0f, -1},
        {below_1, quiet_nan},
        {above_1, quiet_nan},
        {2.5f, quiet_nan},
        {4194303.0f, -1},
        {4194303.5f, quiet_nan},
        {4194305.0f, -1},
        {8388606.0f, 1},
        {8388607.0f, -1},
        {8388607.5f, quiet_nan},
        {8388608.0f, 1},
        {8388609.0f, -1},
        {16777214.0f, 1},
        {16777215.0f, -1},
        {16777216.0f, 1},
        {16777218.0f, 1},
        {smallest, quiet_nan},
        {largest, 1},
    };
    for (const auto& kernel : entry("powf4").kernels)
        for (const auto& row : rows)
            for (const float y : {row.y, -row.y}) {
                const Result result = call(kernel.address, floats(-1, -1, -1, -1), floats(y, y, y, y));
                const bool nan = std::isnan(row.expected);
                EXPECT_EQ(result.first.u[2], nan ? 0x7FFFFFFFu : std::bit_cast<std::uint32_t>(row.expected))
                    << kernel.symbol << ' ' << y;
                EXPECT_EQ(result.flags & loud_flags, nan ? flag_invalid : 0u) << kernel.symbol << ' ' << y;
            }
}

// All tiers give the same bits, in all rounding modes.
TEST(Powf4, TiersAgree)
{
    const PowerArguments<float> sample = power_arguments(smallest, largest, -160, 140, 4000);
    for (const Rounding rounding : all_roundings)
        for (std::size_t i = 0; i + 4 <= sample.x.size(); i += 4) {
            const Vec128 x = floats(sample.x[i], sample.x[i + 1], sample.x[i + 2], sample.x[i + 3]);
            const Vec128 y = floats(sample.y[i], sample.y[i + 1], sample.y[i + 2], sample.y[i + 3]);
            const auto kernels = without_lane_loops(entry("powf4").kernels);
            const Result expected = call(kernels[0].address, x, y, {}, nullptr, rounding);
            for (const auto& kernel : kernels)
                EXPECT_TRUE(
                    same_bits(expected.first, call(kernel.address, x, y, {}, nullptr, rounding).first))
                    << kernel.symbol << hex(x) << hex(y);
        }
}

// In the directed modes w - round(w) reaches 1, where the quadratics are off by 1.6e-5.
TEST(Powf4, DirectedRounding)
{
    const auto arguments = power_arguments(0x1p-126f, largest, -125.9, 127.9, 4000);
    for (const auto& kernel : entry("powf4").kernels)
        expect_directed_error_within(136, kernel, arguments, "any x");
}

} // namespace
} // namespace zelk::test
