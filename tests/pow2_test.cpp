// Double precision power.
#include "power_cases.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr double infinity = test::infinity<double>;
constexpr double largest = test::largest<double>;
constexpr double smallest = test::smallest<double>;
constexpr double quiet_nan = test::quiet_nan<double>;
constexpr double above_1 = test::above_1<double>;
constexpr double below_1 = test::below_1<double>;

TEST(Pow2, ErrorByPath)
{
    const struct {
        const char* name;
        PowerArguments<double> arguments;
        double bound;
    } paths[] = {
        {"vector, any x", power_arguments(0x1p-1022, largest, -963.9, 1022.9, 15000), 0.51},
        {"vector, x in [1/2, 1)", power_arguments(0.5, 0x1.ffp-1, -963.9, 1022.9, 5000), 0.51},
        {"vector, x in (1, 2)", power_arguments(0x1.01p0, 2.0, -963.9, 1022.9, 5000), 0.51},
        // log2 x is smallest here beside its polynomial: of that, 0.1 ulp is the fit and 0.6 rounding.
        {"vector, x in the log table's first steps",
         power_arguments(0x1.002p0, 0x1.00208p0, 990, 1022.9, 5000), 1.35},
        {"vector, x just below 1", power_arguments(0x1.fp-1, below_1, -963.9, 1022.9, 15000), 0.81},
        {"vector, x just above 1", power_arguments(above_1, 0x1.1p0, -963.9, 1022.9, 15000), 0.81},
        {"scalar, subnormal x", power_arguments(smallest, 0x0.fffffp-1022, -963.9, 1022.9, 5000), 0.51},
        {"scalar, negative x", negative_bases(smallest, largest, -900, 1020, 5000), 0.51},
        {"scalar, large results", power_arguments(0x1p-1022, largest, 1022.9, 1023.999, 5000), 0.51},
        {"scalar, small results", power_arguments(0x1p-1022, largest, -1021.9, -963.9, 5000), 0.51},
        {"scalar, subnormal results", power_arguments(0x1p-1022, largest, -1075.5, -1021.9, 10000), 0.503},
        {"scalar, largest subnormal results", power_arguments(0x1p-1022, largest, -1023.1, -1021.9, 5000),
         0.503},
        {"scalar, negative subnormal results", negative_bases(0x1.1p0, 2.0, -1076, -1023, 5000), 0.503},
    };
    for (const auto& path : paths)
        for (const auto& kernel : entry("pow2").kernels)
            expect_error_within(
                path.bound,
                worst_error(kernel.address, path.arguments.x, path.arguments.y, mpfr_binary(mpfr_pow)),
                kernel.symbol, path.name);
}

const Special<double> specials[] = {
    {"2^0", 2.0, 1.0, 0, 0.0},
    {"0.3^-0", 0.3, 1.0, 0, -0.0},
    {"1^largest", 1.0, 1.0, 0, largest},
    {"1^-largest", 1.0, 1.0, 0, -largest},
    {"10^400", 10.0, infinity, 0, 400.0},
    {"10^5000", 10.0, infinity, 0, 5000.0},
    {"-10^401", -10.0, -infinity, 0, 401.0},
    {"-10^400", -10.0, infinity, 0, 400.0},
    {"-10^5001", -10.0, -infinity, 0, 5001.0},
    {"-10^-401", -10.0, -0.0, 0, -401.0},
    {"-10^-5001", -10.0, -0.0, 0, -5001.0},
    {"-10^-5000", -10.0, 0.0, 0, -5000.0},
    {"0.5^5000", 0.5, 0.0, 0, 5000.0},
    {"0.5^-5000", 0.5, infinity, 0, -5000.0},
    {"just above 1^largest", above_1, infinity, 0, largest},
    {"just above 1^-largest", above_1, 0.0, 0, -largest},
    {"2^1025", 2.0, infinity, 0, 1025.0},
    {"2^-1076", 2.0, 0.0, 0, -1076.0},
};

TEST(Pow2, SpecialLanes)
{
    for (const auto& kernel : entry("pow2").kernels) {
        check_specials(kernel, power_specials<double>, 1.7, OrdinaryLanes::keep_bits, all_roundings, 2.3);
        check_specials(kernel, specials, 1.7, OrdinaryLanes::keep_bits, all_roundings, 2.3);
    }
}

// A NaN comes back as it is, a signalling one too.
TEST(Pow2, NanPattern)
{
    const std::uint64_t nans[] = {0x7FF8000000000000, 0xFFFC000012345678, 0x7FF0000000000001,
                                  0xFFF4000000000000};
    const std::uint64_t two = 0x4000000000000000;
    for (const auto& kernel : entry("pow2").kernels) {
        for (const std::uint64_t nan : nans) {
            const Result result = call(kernel.address, quads(nan, two), quads(two, nan));
            EXPECT_TRUE(same_bits(result.first, quads(nan, nan))) << kernel.symbol << hex(result.first);
            EXPECT_EQ(result.flags & loud_flags, 0u) << kernel.symbol << hex(quads(nan, nan));
            const Result both = call(kernel.address, quads(nan, nan), quads(nans[0], nans[1]));
            EXPECT_TRUE(same_bits(both.first, quads(nan, nan))) << kernel.symbol << hex(both.first);
        }
        const Result invalid = call(kernel.address, doubles(-2, -3), doubles(0.5, 1.25));
        EXPECT_TRUE(same_bits(invalid.first, quads(0xFFF8000000000000, 0xFFF8000000000000)))
            << kernel.symbol << hex(invalid.first);
    }
}

// Results that the last multiplication takes out of the range raise its flags; those found out of range
// before raise nothing.
TEST(Pow2, RangeFlags)
{
    const struct {
        double x, y, expected;
        unsigned flags; // of loud ones and underflow
    } rows[] = {
        {2, 1023, 0x1p1023, 0},
        {2, 1024, infinity, flag_overflow},
        {2, 1024.99, infinity, flag_overflow},
        {2, 1024.998, infinity, 0}, // the multiple of 1/128 is 1025
        {2, 1e300, infinity, 0},
        {-2, 1023, -0x1p1023, 0},
        {-2, 1024, infinity, flag_overflow},
        {-0.5, -1025, -infinity, 0},
        {2, -1022, 0x1p-1022, 0},
        {2, -1023, 0x1p-1023, 0},
        {2, -1074, smallest, 0},
        {-2, -1073, -2 * smallest, 0},
        {2, -1074.5, smallest, flag_underflow},
        {2, -1075, 0, flag_underflow}, // half the smallest number, to even
        {-2, -1075, -0.0, flag_underflow},
        {2, -1075.01, 0, 0},
        {2, -1076, 0, 0},
        {-2, -1077, -0.0, 0},
        {3, -678, smallest, flag_underflow},
        {3, -679, 0, 0},
    };
    for (const auto& kernel : entry("pow2").kernels)
        for (const auto& row : rows)
            for (unsigned lane = 0; lane < 2; ++lane) {
                Vec128 x = doubles(3, 3);
                Vec128 y = doubles(-4, -4);
                x.d[lane] = row.x;
                y.d[lane] = row.y;
                const Result result = call(kernel.address, x, y);
                EXPECT_EQ(result.first.q[lane], std::bit_cast<std::uint64_t>(row.expected))
                    << kernel.symbol << ' ' << row.x << '^' << row.y << " gives " << hex(result.first);
                EXPECT_EQ(flag_names(result.flags & (loud_flags | flag_underflow)), flag_names(row.flags))
                    << kernel.symbol << ' ' << row.x << '^' << row.y << " lane " << lane;
            }
}

// The edges of the paths, beside ordinary and special lanes: a lane's bits depend on that lane alone, though
// a special lane sends both through the scalar routine, and the flags are those of the lanes.
TEST(Pow2, MixedVectors)
{
    std::vector<double> xs = {2.0, 0.3, -3.0, 0.0, infinity, quiet_nan, -smallest, 0.0};
    std::vector<double> ys = {3.0, -0.7, 2.0, infinity, 0.5, 1.0, 0.25, 5.0};
    const auto add = [&](double centre, double y) {
        for (const double x : neighbours(centre, 2)) {
            xs.push_back(x);
            ys.push_back(y);
        }
    };
    add(0x1p-1022, 0.75);
    add(0x1.7fep0, 900.5);           // the logarithm's table turns over to the next exponent
    add(0x1.00200000p0, -123456.75); // and from one entry to the next
    add(1.0, 0x1p61);
    add(1.0, 0x1p63); // y log2 x is next to 2^12
    add(largest, 0.999);
    for (const double y : {1022.99, 1023.0, 1024.0, 1025.0, -963.0, -963.996, -964.0, -1022.0, -1074.0,
                           -1076.0, 2047.0, 2048.0, 4096.0, -4096.0, 1e-300, smallest})
        add(2.0, y);
    for (const auto& kernel : entry("pow2").kernels) {
        std::vector<Result> alone;
        for (std::size_t i = 0; i < xs.size(); ++i)
            alone.push_back(call(kernel.address, doubles(xs[i], xs[i]), doubles(ys[i], ys[i])));
        for (std::size_t i = 0; i < xs.size(); ++i)
            for (std::size_t j = 0; j < xs.size(); ++j) {
                const Vec128 x = doubles(xs[i], xs[j]);
                const Vec128 y = doubles(ys[i], ys[j]);
                const Result mixed = call(kernel.address, x, y);
                EXPECT_EQ(mixed.first.q[0], alone[i].first.q[0]) << kernel.symbol << hex(x) << hex(y);
                EXPECT_EQ(mixed.first.q[1], alone[j].first.q[1]) << kernel.symbol << hex(x) << hex(y);
                EXPECT_EQ(flag_names(mixed.flags & loud_flags),
                          flag_names((alone[i].flags | alone[j].flags) & loud_flags))
                    << kernel.symbol << hex(x) << hex(y);
            }
    }
}

// The scalar routine, which a special lane sends the other one through, gives the vector path's bits, in all
// rounding modes; and so does every tier.
TEST(Pow2, ScalarAgreesWithVector)
{
    const PowerArguments<double> sample = power_arguments(0x1p-1022, largest, -963.9, 1022.9, 3000);
    for (const Rounding rounding : all_roundings)
        for (std::size_t i = 0; i < sample.x.size(); ++i) {
            const Vec128 x = doubles(sample.x[i], sample.x[i]);
            const Vec128 y = doubles(sample.y[i], sample.y[i]);
            const Result expected = call(entry("pow2").kernels[0].address, x, y, {}, nullptr, rounding);
            for (const auto& kernel : entry("pow2").kernels) {
                const Result vector = call(kernel.address, x, y, {}, nullptr, rounding);
                const Result scalar =
                    call(kernel.address, doubles(x.d[0], quiet_nan), y, {}, nullptr, rounding);
                EXPECT_TRUE(same_bits(vector.first, expected.first)) << kernel.symbol << hex(x) << hex(y);
                EXPECT_EQ(scalar.first.q[0], expected.first.q[0]) << kernel.symbol << hex(x) << hex(y);
            }
        }
}

// Results that binary64 holds exactly come out exactly, powers of two in every rounding mode.
TEST(Pow2, Landmarks)
{
    for (const auto& kernel : entry("pow2").kernels) {
        const auto expect = [&](double x, double y, double expected, Rounding rounding = Rounding::nearest) {
            const Result result = call(kernel.address, doubles(x, x), doubles(y, y), {}, nullptr, rounding);
            EXPECT_TRUE(same_bits(result.first, doubles(expected, expected)))
                << kernel.symbol << ' ' << x << '^' << y << " gives " << hex(result.first) << " rounding "
                << static_cast<unsigned>(rounding);
            EXPECT_EQ(result.flags & loud_flags, 0u) << kernel.symbol << ' ' << x << '^' << y;
        };
        for (const Rounding rounding : all_roundings)
            for (int n = -1074; n <= 1023; ++n) {
                const double power = std::ldexp(1.0, n);
                expect(2.0, n, power, rounding);
                expect(0.5, -n, power, rounding);
                expect(-2.0, n, n % 2 == 0 ? power : -power, rounding);
                expect(power, 0.0, 1.0, rounding);
                expect(1.0, power, 1.0, rounding);
                expect(1.0, -power, 1.0, rounding);
                expect(power, 1.0, power, rounding);
            }
        expect(2.0, smallest, 1.0);
        expect(largest, -0x1p-1022, 1.0);
        expect(0x1p-1060, 0.5, 0x1p-530);
        expect(0x1p-1074, 0.5, 0x1p-537);
        for (int n = 2; n <= 9000; n += 7) {
            const double base = n;
            expect(base, 3.0, base * base * base);
            expect(-base, 3.0, -(base * base * base));
            expect(base * base, 0.5, base);
            expect(base * base, 1.5, base * base * base);
        }
        for (const double x : sample_patterns(smallest, largest, 1000)) {
            expect(x, 1.0, x);
            expect(-x, 1.0, -x);
            expect(x, -0.0, 1.0);
            expect(1.0, -x, 1.0);
        }
    }
}

// Which y is an odd, an even or no integer shows in the powers of -1.
TEST(Pow2, Parity)
{
    const struct {
        double y, expected;
    } rows[] = {
        {1, -1},
        {2, 1},
        {3, -1},
        {below_1, quiet_nan},
        {above_1, quiet_nan},
        {1.5, quiet_nan},
        {0x1p20 - 1, -1},
        {0x1p20, 1},
        {0x1p20 + 1, -1},
        {0x1p20 + 0.5, quiet_nan},
        {0x1p20 + 0x1p-32, quiet_nan},
        {0x1p21 + 1, -1},
        {0x1p21 + 0.5, quiet_nan},
        {0x1p31 + 1, -1},
        {0x1p32 + 2, 1},
        {0x1p51 + 0.5, quiet_nan},
        {0x1p52 - 0.5, quiet_nan},
        {0x1p52 - 1, -1},
        {0x1p52, 1},
        {0x1p52 + 1, -1},
        {0x1p53 - 1, -1},
        {0x1p53, 1},
        {0x1p53 + 2, 1},
        {smallest, quiet_nan},
        {largest, 1},
    };
    for (const auto& kernel : entry("pow2").kernels)
        for (const auto& row : rows)
            for (const double y : {row.y, -row.y}) {
                const Result result = call(kernel.address, doubles(-1, -1), doubles(y, y));
                const bool nan = std::isnan(row.expected);
                EXPECT_EQ(result.first.q[1],
                          nan ? 0xFFF8000000000000 : std::bit_cast<std::uint64_t>(row.expected))
                    << kernel.symbol << ' ' << y;
                EXPECT_EQ(result.flags & loud_flags, nan ? flag_invalid : 0u) << kernel.symbol << ' ' << y;
            }
}

// In the directed modes the exponent's remainder is twice as long. Subnormal results are rounded once there
// too.
TEST(Pow2, DirectedRounding)
{
    const auto any = power_arguments(0x1p-1022, largest, -963.9, 1022.9, 2000);
    const auto subnormal = power_arguments(0x1p-1022, largest, -1073.9, -1022, 2000);
    for (const auto& kernel : entry("pow2").kernels) {
        expect_directed_error_within(1.3, kernel, any, "any x");
        expect_directed_error_within(1.15, kernel, subnormal, "subnormal results");
    }
}

} // namespace
} // namespace zelk::test
