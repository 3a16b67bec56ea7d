// Arc functions in the 80-bit format: atan, asin, acos, and atan2 in radians and degrees.
#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelk::test {
namespace {

using namespace encoding;
using Sample = std::vector<long double>;

int atan2_degrees(mpfr_ptr result, mpfr_srcptr y, mpfr_srcptr x, mpfr_rnd_t mode)
{
    return mpfr_atan2u(result, y, x, 360, mode);
}

void measure(const char* name, int (*exact)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t), const std::string& path,
             const Sample& xs, double bound = 0.54, const Environment& environment = {})
{
    const ScalarKernel kernel = scalar_kernel(name);
    expect_error_within(bound, worst_error(kernel, xs, mpfr_unary(exact), -1, environment), kernel.symbol,
                        path);
}

struct Points {
    Sample y;
    Sample x;
};
// All signs; exponents of each coordinate in random order.
Points points(int from, int to, std::size_t count)
{
    Points result{sample_binades(from, to, count, 1), sample_binades(from, to, count, 2)};
    Random random(3);
    for (std::size_t i = result.x.size(); i-- > 0;) {
        std::swap(result.x[i], result.x[static_cast<std::size_t>(random.next() % (i + 1))]);
        const std::uint64_t signs = random.next();
        if ((signs & 1) != 0) result.x[i] = -result.x[i];
        if ((signs & 2) != 0) result.y[i] = -result.y[i];
    }
    return result;
}

// Where the table takes over, and what is rounded is largest beside the result.
Points about_an_eighth(std::size_t count)
{
    return {sample_interval(0.11L, 0.15L, count, 1), sample_interval(1.0L, 1.1L, count, 2)};
}

void measure(const std::string& path, const Points& points, double bound = 0.54,
             const Environment& environment = {})
{
    const ScalarKernel radians = scalar_kernel("atan2l_scalar");
    expect_error_within(bound,
                        worst_error(radians, points.y, points.x, mpfr_binary(mpfr_atan2), -1, environment),
                        radians.symbol, path);
    const ScalarKernel degrees = scalar_kernel("atan2dl_scalar");
    expect_error_within(bound,
                        worst_error(degrees, points.y, points.x, mpfr_binary(atan2_degrees), -1, environment),
                        degrees.symbol, path);
}

// 1 - u for u down to the last place of 1.
Sample near_one(std::size_t count)
{
    Sample xs;
    for (const long double u : sample_binades(-64, -1, count))
        xs.push_back(1 - u);
    return xs;
}

TEST(ExtendedArc, ArcTangent)
{
    measure("atanl_scalar", mpfr_atan, "all binades",
            with_negatives(sample_binades(smallest_exponent, largest_exponent, 8000)));
    measure("atanl_scalar", mpfr_atan, "2^-80 to 2^80", with_negatives(sample_binades(-80, 79, 10000)));
    measure("atanl_scalar", mpfr_atan, "-3 to 3", sample_interval(-3.0L, 3.0L, 10000));
}

TEST(ExtendedArc, ArcSineAndCosine)
{
    Sample corners = joined(neighbours(0x1p-40L, 3), neighbours(0x1p-100L, 3));
    corners = joined(corners, neighbours(0.5L, 3));
    corners = joined(corners, neighbours(std::sqrt(0.5L), 3));
    for (int i = 1; i <= 4; ++i)
        corners.push_back(1 - static_cast<long double>(i) * 0x1p-64L);
    const struct {
        const char* name;
        int (*exact)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
    } functions[] = {{"asinl_scalar", mpfr_asin}, {"acosl_scalar", mpfr_acos}};
    for (const auto& [name, exact] : functions) {
        measure(name, exact, "all binades", with_negatives(sample_binades(smallest_exponent, -1, 4000)));
        measure(name, exact, "2^-110 to 1", with_negatives(sample_binades(-110, -1, 8000)));
        measure(name, exact, "-1 to 1", sample_interval(-1.0L, 1.0L, 10000));
        // Where the table begins and ends.
        measure(name, exact, "next to 1/8", with_negatives(sample_interval(0.12L, 0.14L, 5000)));
        measure(name, exact, "next to 15/16", with_negatives(sample_interval(0.9L, 0.95L, 5000)));
        measure(name, exact, "near 1", with_negatives(near_one(10000)));
        measure(name, exact, "thresholds", with_negatives(corners));
    }
}

TEST(ExtendedArc, DirectionOfAPoint)
{
    measure("about 1/8", about_an_eighth(10000));
    measure("about the diagonals", points(-2, 2, 10000));
    measure("to the axes", points(-80, 80, 10000));
    measure("all binades", points(smallest_exponent, largest_exponent, 8000));
    measure("denormals", points(-16445, -16370, 3000));
}

// y/x below the smallest normal number: rounded once.
TEST(ExtendedArc, DenormalAngles)
{
    Points flat{sample_binades(-200, -100, 5000, 1), sample_binades(16220, 16340, 5000, 2)};
    measure("denormal results", flat);
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero})
        measure("denormal results, directed rounding", flat, 1.001, {rounding, 64, 0});
}

// Where the nearest of the 513 points changes, and the quotients at which y/x and pi - y/x take over.
TEST(ExtendedArc, Thresholds)
{
    Points corners;
    for (int j = 1; j <= 257; ++j) {
        for (const long double y : neighbours(static_cast<long double>(j) / 256, 2)) {
            // With 1 - 2^-54 the numerator takes all of 64 bits, and its sign one more.
            for (const long double x :
                 {1.0L, 0xF.FFFFFFFFFFFFFFFp-4L, 1 - 0x1p-54L, 0x8.000000000000001p-3L}) {
                for (const long double sign : {1.0L, -1.0L}) {
                    corners.y.insert(corners.y.end(), {y, x});
                    corners.x.insert(corners.x.end(), {sign * x, sign * y});
                }
            }
        }
    }
    for (const int exponent : {-72, -71, -70, -69, 69, 70, 71, 72}) {
        for (const long double y : neighbours(std::ldexp(1.0L, exponent), 2)) {
            corners.y.insert(corners.y.end(), {y, y});
            corners.x.insert(corners.x.end(), {1.0L, -1.0L});
        }
    }
    measure("thresholds", corners);
}

TEST(ExtendedArc, DirectedRounding)
{
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero}) {
        const Environment environment = {rounding, 64, 0};
        measure("directed rounding", points(-80, 80, 2000), 1.07, environment);
        measure("directed rounding", about_an_eighth(1000), 1.07, environment);
        measure("atanl_scalar", mpfr_atan, "directed", with_negatives(sample_binades(-80, 80, 1000)), 1.07,
                environment);
        measure("asinl_scalar", mpfr_asin, "directed", with_negatives(sample_binades(-80, -1, 1000)), 1.07,
                environment);
        measure("acosl_scalar", mpfr_acos, "directed", with_negatives(near_one(1000)), 1.07, environment);
        measure("acosl_scalar", mpfr_acos, "directed", with_negatives(sample_binades(-120, -1, 1000)), 1.07,
                environment);
    }
}

TEST(ExtendedArc, ReducedPrecision)
{
    const Environment environment = {Rounding::nearest, 53, 0};
    measure("53 bits", points(-80, 80, 2000), 3 * 2048.0, environment);
    measure("asinl_scalar", mpfr_asin, "53 bits", sample_interval(-1.0L, 1.0L, 2000), 3 * 2048.0,
            environment);
    measure("acosl_scalar", mpfr_acos, "53 bits", sample_interval(-1.0L, 1.0L, 2000), 3 * 2048.0,
            environment);
}

constexpr Bits80 quarter_turn_degrees = {0xB400000000000000, 0x4005}; // 90
constexpr Bits80 half_turn_degrees = {0xB400000000000000, 0x4006};    // 180

// Multiples of 45 degrees are exact in all roundings and precisions.
TEST(ExtendedArc, ExactAnglesInDegrees)
{
    constexpr Bits80 eighth = {0xB400000000000000, 0x4004};
    constexpr Bits80 three_eighths = {0x8700000000000000, 0x4006};
    const Bits80 three = bits80(3.0L);
    const Bits80 minus_three = bits80(-3.0L);
    std::vector<SpecialScalar> cases = {
        {"+0, +0", plus_zero, plus_zero, 0, plus_zero},
        {"+0, -0", plus_zero, half_turn_degrees, 0, minus_zero},
        {"+0, 1", plus_zero, plus_zero, 0, plus_one},
        {"+0, -1", plus_zero, half_turn_degrees, 0, minus_one},
        {"+0, infinity", plus_zero, plus_zero, 0, plus_infinity},
        {"+0, -infinity", plus_zero, half_turn_degrees, 0, minus_infinity},
        {"1, +0", plus_one, quarter_turn_degrees, 0, plus_zero},
        {"1, -0", plus_one, quarter_turn_degrees, 0, minus_zero},
        {"denormal, 0", smallest_denormal, quarter_turn_degrees, 0, plus_zero},
        {"infinity, 1", plus_infinity, quarter_turn_degrees, 0, plus_one},
        {"infinity, -1", plus_infinity, quarter_turn_degrees, 0, minus_one},
        {"infinity, 0", plus_infinity, quarter_turn_degrees, 0, minus_zero},
        {"infinity, infinity", plus_infinity, eighth, 0, plus_infinity},
        {"infinity, -infinity", plus_infinity, three_eighths, 0, minus_infinity},
        {"1, infinity", plus_one, plus_zero, 0, plus_infinity},
        {"1, -infinity", plus_one, half_turn_degrees, 0, minus_infinity},
        {"3, 3", three, eighth, 0, three},
        {"3, -3", three, three_eighths, 0, minus_three},
        {"denormals", smallest_denormal, eighth, 0, smallest_denormal},
        {"large", {integer_bit, 0x7FFE}, three_eighths, 0, {integer_bit, 0xFFFE}},
    };
    const std::size_t count = cases.size();
    for (std::size_t i = 0; i < count; ++i) {
        SpecialScalar below = cases[i];
        below.x.sign_exponent ^= 0x8000;
        below.expected.sign_exponent ^= 0x8000;
        cases.push_back(below);
    }
    check_specials(scalar_kernel("atan2dl_scalar"), cases);
    check_nan_arguments(scalar_kernel("atan2dl_scalar"));
    // Numbers of 64 bits on the diagonals.
    for (const Rounding rounding : all_roundings)
        for (const Bits80& y : {largest, largest_denormal, bits80(1.0L / 3.0L)})
            EXPECT_EQ(call_scalar(scalar_kernel("atan2dl_scalar"), y, y, {rounding, 64, 0}).value(), 45.0L);
}

// The zeros in all roundings and precisions, the multiples of pi/4 rounded to the nearest.
TEST(ExtendedArc, SpecialArgumentsInRadians)
{
    const SpecialScalar zeros[] = {
        {"+0, +0", plus_zero, plus_zero, 0, plus_zero},
        {"-0, +0", minus_zero, minus_zero, 0, plus_zero},
        {"+0, 1", plus_zero, plus_zero, 0, plus_one},
        {"-0, 1", minus_zero, minus_zero, 0, plus_one},
        {"-0, infinity", minus_zero, minus_zero, 0, plus_infinity},
        {"1, infinity", plus_one, plus_zero, 0, plus_infinity},
        {"-1, infinity", minus_one, minus_zero, 0, plus_infinity},
        {"largest, infinity", largest, plus_zero, 0, plus_infinity},
    };
    const ScalarKernel kernel = scalar_kernel("atan2l_scalar");
    check_specials(kernel, zeros);
    check_nan_arguments(kernel);
    const long double pi = 0xC.90FDAA22168C235p-2L;
    const struct {
        Bits80 y;
        Bits80 x;
        long double angle;
    } cases[] = {
        {plus_zero, minus_zero, pi},
        {plus_zero, minus_one, pi},
        {plus_zero, minus_infinity, pi},
        {plus_one, minus_infinity, pi},
        {smallest_denormal, minus_one, pi},
        {plus_one, plus_zero, pi / 2},
        {plus_one, minus_zero, pi / 2},
        {plus_infinity, plus_one, pi / 2},
        {plus_infinity, minus_one, pi / 2},
        {largest, smallest_denormal, pi / 2},
        {plus_infinity, plus_zero, pi / 2},
        {plus_infinity, plus_infinity, pi / 4},
        {plus_one, plus_one, pi / 4},
        {plus_infinity, minus_infinity, 0x9.6CBE3F9990E91A8p-2L},
        {plus_one, minus_one, 0x9.6CBE3F9990E91A8p-2L},
    };
    for (const auto& [y, x, angle] : cases) {
        Bits80 below = y;
        below.sign_exponent ^= 0x8000;
        for (const auto& [argument, expected] : {std::pair{y, angle}, std::pair{below, -angle}}) {
            const ScalarResult got = call_scalar(kernel, argument, x);
            EXPECT_EQ(hex(got.extended), hex(bits80(expected))) << hex(argument) << ' ' << hex(x);
            EXPECT_EQ(got.flags & loud_flags, 0u);
        }
    }
}

TEST(ExtendedArc, SpecialArgumentsOfOne)
{
    const Bits80 above_one = {integer_bit + 1, 0x3FFF};
    const SpecialScalar beyond[] = {
        {"above 1", above_one, quiet_nan, flag_invalid},
        {"-2", {integer_bit, 0xC000}, quiet_nan, flag_invalid},
        {"largest", largest, quiet_nan, flag_invalid},
        {"infinity", plus_infinity, quiet_nan, flag_invalid},
        {"-infinity", minus_infinity, quiet_nan, flag_invalid},
    };
    const SpecialScalar zeros[] = {{"+0", plus_zero, plus_zero}, {"-0", minus_zero, minus_zero}};
    const SpecialScalar one[] = {{"1", plus_one, plus_zero}};
    check_specials(scalar_kernel("asinl_scalar"), beyond);
    check_specials(scalar_kernel("acosl_scalar"), beyond);
    check_specials(scalar_kernel("asinl_scalar"), zeros);
    check_specials(scalar_kernel("atanl_scalar"), zeros);
    check_specials(scalar_kernel("acosl_scalar"), one);
    for (const char* name : {"atanl_scalar", "asinl_scalar", "acosl_scalar"})
        check_nan_arguments(scalar_kernel(name));

    const long double pi = 0xC.90FDAA22168C235p-2L;
    const struct {
        const char* name;
        Bits80 x;
        long double expected;
    } landmarks[] = {
        {"atanl_scalar", plus_infinity, pi / 2}, {"atanl_scalar", minus_infinity, -pi / 2},
        {"atanl_scalar", largest, pi / 2},       {"atanl_scalar", plus_one, pi / 4},
        {"atanl_scalar", minus_one, -pi / 4},    {"asinl_scalar", plus_one, pi / 2},
        {"asinl_scalar", minus_one, -pi / 2},    {"acosl_scalar", minus_one, pi},
        {"acosl_scalar", plus_zero, pi / 2},     {"acosl_scalar", minus_zero, pi / 2},
    };
    for (const auto& [name, x, expected] : landmarks) {
        const ScalarResult got = call_scalar(scalar_kernel(name), x);
        EXPECT_EQ(hex(got.extended), hex(bits80(expected))) << name << ' ' << hex(x);
        EXPECT_EQ(got.flags & loud_flags, 0u) << name;
    }
}

// What is next to x in the direction of the rounding.
TEST(ExtendedArc, TinyArguments)
{
    for (const Bits80& x : {smallest_denormal, largest_denormal, smallest_normal, pseudo_denormal,
                            Bits80{0xFEDCBA9876543210, 0x3F00}}) {
        const long double value = number(x);
        const auto result = [&](const char* name, Rounding rounding) {
            return call_scalar(scalar_kernel(name), x, {}, {rounding, 64, 0}).value();
        };
        EXPECT_EQ(result("atanl_scalar", Rounding::nearest), value);
        EXPECT_EQ(result("atanl_scalar", Rounding::up), value);
        EXPECT_EQ(result("atanl_scalar", Rounding::down), std::nextafter(value, 0.0L));
        EXPECT_EQ(result("asinl_scalar", Rounding::nearest), value);
        EXPECT_EQ(result("asinl_scalar", Rounding::down), value);
        EXPECT_EQ(result("asinl_scalar", Rounding::up), std::nextafter(value, 1.0L));
    }
}

} // namespace
} // namespace zelk::test
