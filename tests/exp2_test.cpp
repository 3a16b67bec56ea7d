// e^x on double2.
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double quiet_nan = std::numeric_limits<double>::quiet_NaN();
// The last arguments whose results round to finite numbers, to normal ones, and to non-zero ones.
constexpr double last_finite = 0x1.62e42fefa39efp9;
constexpr double last_normal = -0x1.6232bdd7abcd2p9;
constexpr double last_nonzero = -0x1.74910d52d3051p9;

struct Path {
    const char* name;
    std::vector<double> arguments;
    double bound;          // round to nearest
    double bound_directed; // the polynomial serves twice its interval in these modes
};

std::vector<Path> paths()
{
    return {
        {"tiny", with_negatives(sample_patterns(smallest, 0x1p-8, 4000)), 1.0, 13.2},
        {"ordinary", joined(sample_interval(-703.999, 703.999, 20000), sample_interval(-2.0, 2.0, 10000)),
         3.0, 13.2},
        // Results just below powers of two: r is largest against them in units of the last place.
        {"fraction 61/64", joined(sample_interval(-0.0285, -0.0270, 4000), {-0x1.d99e6e3e5fb98p-6}), 3.0,
         13.2},
        {"scaled, normal",
         joined(sample_interval(704.0, last_finite, 4000), sample_interval(last_normal, -704.0, 4000)), 3.0,
         13.2},
        {"scaled, subnormal", sample_interval(last_nonzero, last_normal, 6000), 1.55, 6.6},
    };
}

TEST(Exp2, ErrorByPath)
{
    for (const Path& path : paths())
        for (const auto& kernel : entry("exp2").kernels)
            expect_error_within(path.bound, worst_error(kernel.address, path.arguments, mpfr_unary(mpfr_exp)),
                                kernel.symbol, path.name);
}

TEST(Exp2, ErrorInDirectedModes)
{
    for (const Path& path : paths())
        for (const auto& kernel : entry("exp2").kernels)
            expect_directed_error_within(path.bound_directed, kernel, path.arguments, mpfr_unary(mpfr_exp));
}

TEST(Exp2, SpecialLanes)
{
    const Special<double> in_all_modes[] = {
        {"+0", 0.0, 1.0},
        {"-0", -0.0, 1.0},
        {"+inf", infinity, infinity},
        {"-inf", -infinity, 0.0},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_d, quiet_nan, flag_invalid},
    };
    const Special<double> overflow[] = {
        {"first that overflows", std::nextafter(last_finite, infinity), infinity, flag_overflow},
        {"below 768", std::nextafter(768.0, 0.0), infinity, flag_overflow},
        {"768", 768.0, infinity, flag_overflow},
        {"2000", 2000.0, infinity, flag_overflow},
        {"1e300", 1e300, infinity, flag_overflow},
        {"largest", largest, infinity, flag_overflow},
    };
    const Special<double> underflow[] = {
        {"first that gives zero", std::nextafter(last_nonzero, -infinity), 0.0},
        {"above -768", std::nextafter(-768.0, 0.0), 0.0},
        {"-768", -768.0, 0.0},
        {"-2000", -2000.0, 0.0},
        {"-1e300", -1e300, 0.0},
        {"-largest", -largest, 0.0},
    };
    const Rounding nearest[] = {Rounding::nearest};
    for (const auto& kernel : entry("exp2").kernels)
        for (const double ordinary : {1.25, -700.5, 706.0}) {
            check_specials(kernel, in_all_modes, ordinary, OrdinaryLanes::keep_bits);
            check_specials(kernel, overflow, ordinary, OrdinaryLanes::keep_bits, nearest);
            check_specials(kernel, underflow, ordinary, OrdinaryLanes::keep_bits, nearest);
        }
}

// Saturated results follow the rounding mode as squares do.
TEST(Exp2, SaturationInDirectedModes)
{
    const struct {
        double x;
        Rounding rounding;
        double expected;
        unsigned flags;
    } cases[] = {
        {768, Rounding::up, infinity, flag_overflow | flag_inexact},
        {768, Rounding::down, largest, flag_overflow | flag_inexact},
        {1e300, Rounding::zero, largest, flag_overflow | flag_inexact},
        {-768, Rounding::nearest, 0, flag_underflow | flag_inexact},
        {-1e300, Rounding::up, smallest, flag_underflow | flag_inexact},
        {-768, Rounding::down, 0, flag_underflow | flag_inexact},
        {-745.2, Rounding::nearest, 0, flag_underflow | flag_inexact},
    };
    for (const auto& kernel : entry("exp2").kernels) {
        for (const auto& item : cases) {
            const Result result =
                call(kernel.address, doubles(item.x, item.x), {}, {}, nullptr, item.rounding);
            EXPECT_EQ(flag_names(result.flags), flag_names(item.flags)) << kernel.symbol << ' ' << item.x;
            EXPECT_EQ(result.first.d[0], item.expected) << kernel.symbol << ' ' << item.x;
            EXPECT_EQ(result.first.d[1], item.expected) << kernel.symbol << ' ' << item.x;
        }
        // Scaled lanes raise what their own results call for.
        EXPECT_EQ(call(kernel.address, doubles(705, -705)).flags, flag_inexact + 0u) << kernel.symbol;
        EXPECT_EQ(call(kernel.address, doubles(705, -740)).flags, flag_underflow | flag_inexact)
            << kernel.symbol;
    }
}

TEST(Exp2, Thresholds)
{
    std::vector<double> arguments;
    for (const double threshold : {704.0, -704.0, last_finite, last_normal, last_nonzero})
        for (const double x : neighbours(threshold, 20))
            if (x <= last_finite) arguments.push_back(x);
    for (const auto& kernel : entry("exp2").kernels)
        expect_error_within(3.0, worst_error(kernel.address, arguments, mpfr_unary(mpfr_exp)), kernel.symbol,
                            "thresholds");
}

// An ordinary lane keeps its bits beside a lane of any class, and lane order does not matter.
TEST(Exp2, MixedVectors)
{
    const double candidates[] = {703.99,  std::nextafter(704.0, 0.0), 704.0,  -704.0, 709.5, -740.0,
                                 -767.99, std::nextafter(768.0, 0.0), -768.0, 1e300,  1e-310};
    for (const auto& kernel : entry("exp2").kernels)
        for (const double a : candidates)
            for (const double b : candidates) {
                const Result both = call(kernel.address, doubles(a, b));
                EXPECT_EQ(both.first.q[0], call(kernel.address, doubles(a, a)).first.q[0])
                    << kernel.symbol << ' ' << a << ' ' << b;
                EXPECT_EQ(both.first.q[1], call(kernel.address, doubles(b, b)).first.q[1])
                    << kernel.symbol << ' ' << a << ' ' << b;
            }
}

// A NaN keeps its sign and payload.
TEST(Exp2, NanPayload)
{
    for (const auto& kernel : entry("exp2").kernels) {
        const Result result = call(kernel.address, quads(0xFFF8000000012345, 0x7FF0000000000001));
        EXPECT_EQ(result.first.q[0], 0xFFF8000000012345u) << kernel.symbol;
        EXPECT_EQ(result.first.q[1], 0x7FF8000000000001u) << kernel.symbol;
    }
}

TEST(Exp2, TiersAgree)
{
    const auto& kernels = entry("exp2").kernels;
    const auto arguments = sample_interval(-750.0, 712.0, 8000);
    for (std::size_t i = 0; i + 2 <= arguments.size(); i += 2) {
        const Vec128 x = doubles(arguments[i], arguments[i + 1]);
        const Result first = call(kernels[0].address, x);
        for (const auto& kernel : kernels)
            EXPECT_TRUE(same_bits(first.first, call(kernel.address, x).first)) << kernel.symbol << hex(x);
    }
}

} // namespace
} // namespace zelk::test
