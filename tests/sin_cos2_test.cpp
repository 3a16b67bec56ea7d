// Double precision sine and cosine.
#include "hard_arguments.h"
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double quiet_nan = std::numeric_limits<double>::quiet_NaN();

// Where lanes leave the fast path, the vector path and, beside a lane of 2^30 or more, the polynomial.
constexpr double first_beyond_sine = 128000.0625;
const double last_fast_sine = std::nextafter(first_beyond_sine, 0);
const double first_beyond_cosine = std::nextafter(128000.0, infinity);
const double last_medium = std::nextafter(0x1p30, 0);

struct Function {
    const char* entry;
    int (*exact)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
};
constexpr Function sine{"sin2", mpfr_sin};
constexpr Function cosine{"cos2", mpfr_cos};

Result both_lanes(const Kernel& kernel, double x)
{
    return call(kernel.address, doubles(x, x));
}

// Every argument in one lane, alternately, and `neighbour` in the other.
std::vector<double> beside(double neighbour, const std::vector<double>& arguments)
{
    std::vector<double> pairs;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        pairs.push_back(i % 2 ? neighbour : arguments[i]);
        pairs.push_back(i % 2 ? arguments[i] : neighbour);
    }
    return pairs;
}

// Arguments next to a zero of the function.
std::vector<double> near_zeros(const Function& function)
{
    std::vector<double> arguments = near_multiples_of_half_pi();
    Exact value;
    std::erase_if(arguments, [&](double x) {
        mpfr_set_d(value.value, x, MPFR_RNDN);
        function.exact(value.value, value.value, MPFR_RNDN);
        return mpfr_cmpabs_ui(value.value, 0) == 0 || mpfr_get_exp(value.value) > -10;
    });
    return arguments;
}

void expect_within(double bound, const Function& function, std::vector<double> arguments, const char* path)
{
    arguments = with_negatives(std::move(arguments));
    for (const auto& kernel : entry(function.entry).kernels)
        expect_error_within(bound, worst_error(kernel.address, arguments, mpfr_unary(function.exact)),
                            kernel.symbol, path);
}

TEST(SinCos2, ErrorByPath)
{
    for (const Function& function : {sine, cosine}) {
        const bool is_sine = function.exact == mpfr_sin;
        const double first_beyond = is_sine ? first_beyond_sine : first_beyond_cosine;
        const auto fast =
            joined(sample_patterns(0x1p-30, 128000.0, 10000), sample_interval(0x1p-20, 128000.0, 20000));
        const auto medium = sample_patterns(first_beyond, last_medium, 20000);
        expect_within(is_sine ? 2.45 : 2.55, function, fast, "fast");
        expect_within(2.35, function, medium, "medium");
        expect_within(0.511, function, sample_patterns(0x1p30, largest, 10000), "scalar");
        expect_within(2.5, function, beside(0x1p20, sample_interval(0x1p-20, 128000.0, 5000)),
                      "fast, beside a medium lane");
        expect_within(0.511, function, beside(0x1p31, sample_patterns(first_beyond, last_medium, 5000)),
                      "scalar, beside a huge lane");
        expect_within(0.5, function, near_zeros(function), "nearest to zeros");
    }
    expect_within(0.5, sine, sample_patterns(0x1p-1074, 0x1p-30, 5000), "tiny");
}

// The bound of sine is that of the high word, the bound of cosine is exact. Beside a lane of 2^30 a lane that
// is on the fast path keeps its bits, one that isn't gets the scalar routine's 0.511 ulp.
TEST(SinCos2, Bounds)
{
    const struct {
        const Function& function;
        double last_fast;
        double first_beyond;
    } rows[] = {{sine, last_fast_sine, first_beyond_sine}, {cosine, 128000.0, first_beyond_cosine}};
    for (const auto& row : rows) {
        const auto inside =
            joined(sample_interval(row.last_fast - 0.06, row.last_fast, 500), {128000.0, row.last_fast});
        for (const auto& kernel : entry(row.function.entry).kernels)
            for (const double x : inside)
                EXPECT_EQ(call(kernel.address, doubles(x, 0x1p30)).first.q[0],
                          both_lanes(kernel, x).first.q[0])
                    << kernel.symbol << ' ' << std::hexfloat << x;
        expect_within(0.511, row.function,
                      beside(0x1p30, sample_interval(row.first_beyond, row.first_beyond + 0.06, 500)),
                      "first scalar arguments");
    }
}

// Which path a lane takes depends on the other one too; only the arithmetic's own flags are raised.
TEST(SinCos2, MixedVectors)
{
    enum Path { fast, medium, huge };
    const struct {
        Path path;
        double x;
    } candidates[] = {
        {fast, 0.75},           {fast, -3.0},      {fast, 1e-300},     {fast, 127999.5},
        {fast, 128000.0},       {fast, -128000.0}, {medium, 128001.0}, {medium, -first_beyond_sine},
        {medium, -5e5},         {medium, 1e6},     {medium, 0x1p29},   {medium, last_medium},
        {medium, -last_medium}, {huge, 0x1p30},    {huge, -0x1p30},    {huge, 1e10},
        {huge, -4.2e34},        {huge, 1e305},     {huge, largest},    {huge, -largest},
    };
    for (const Function& function : {sine, cosine}) {
        for (const auto& kernel : entry(function.entry).kernels) {
            for (const auto& a : candidates) {
                const std::uint64_t alone = both_lanes(kernel, a.x).first.q[0];
                for (const auto& b : candidates) {
                    // A fast lane of sine squares another r beside a medium one; a medium lane becomes a
                    // scalar one beside a huge one.
                    const bool changes = (function.exact == mpfr_sin && a.path == fast && b.path == medium) ||
                                         (a.path == medium && b.path == huge);
                    for (const int lane : {0, 1}) {
                        const Vec128 x = lane == 0 ? doubles(a.x, b.x) : doubles(b.x, a.x);
                        const Result result = call(kernel.address, x);
                        EXPECT_EQ(flag_names(result.flags & loud_flags), "none") << kernel.symbol << hex(x);
                        if (!changes) {
                            EXPECT_EQ(result.first.q[lane], alone)
                                << kernel.symbol << ' ' << hex(x) << " lane " << lane;
                        }
                    }
                }
            }
        }
    }
}

TEST(SinCos2, SpecialLanes)
{
    const Special<double> not_finite[] = {
        {"+inf", infinity, quiet_nan, flag_invalid},
        {"-inf", -infinity, quiet_nan, flag_invalid},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_d, quiet_nan, flag_invalid},
    };
    for (const Function& function : {sine, cosine}) {
        const double at_zero = function.exact == mpfr_sin ? 0.0 : 1.0;
        const Special<double> zeros[] = {{"+0", 0.0, at_zero}, {"-0", -0.0, at_zero}};
        for (const auto& kernel : entry(function.entry).kernels) {
            check_specials(kernel, not_finite, 1.25, OrdinaryLanes::keep_bits);
            check_specials(kernel, zeros, 1.25, OrdinaryLanes::keep_bits, {all_roundings, 1});
            check_specials(kernel, zeros, 5e5, OrdinaryLanes::keep_bits, {all_roundings, 1});
            check_specials(kernel, zeros, 1e22, OrdinaryLanes::keep_bits, {all_roundings, 1});
        }
    }
}

// A quiet NaN keeps its payload; sine keeps its sign, cosine has lost it with the argument's.
TEST(SinCos2, NanPayload)
{
    const Vec128 nans = quads(0xFFF8000000012345, 0x7FF4000000067890);
    for (const auto& kernel : entry("sin2").kernels)
        EXPECT_TRUE(
            same_bits(call(kernel.address, nans).first, quads(0xFFF8000000012345, 0x7FFC000000067890)))
            << kernel.symbol;
    for (const auto& kernel : entry("cos2").kernels)
        EXPECT_TRUE(
            same_bits(call(kernel.address, nans).first, quads(0x7FF8000000012345, 0x7FFC000000067890)))
            << kernel.symbol;
}

// sin is odd (but for its zeros), cos even; every tier gives the same bits.
TEST(SinCos2, SymmetryAndTiers)
{
    const auto arguments = joined(joined(sample_patterns(0x1p-1074, largest, 4000), neighbours(128000.0, 50)),
                                  sample_patterns(1.0, 0x1p34, 8000));
    for (const Function& function : {sine, cosine}) {
        const std::uint64_t flip = function.exact == mpfr_sin ? std::uint64_t{1} << 63 : 0;
        for (std::size_t i = 0; i + 2 <= arguments.size(); i += 2) {
            const Vec128 x = doubles(arguments[i], arguments[i + 1]);
            const Vec128 minus_x = doubles(-arguments[i], -arguments[i + 1]);
            const Vec128 expected = call(entry(function.entry).kernels[0].address, x).first;
            for (const auto& kernel : entry(function.entry).kernels) {
                Vec128 mirrored = call(kernel.address, minus_x).first;
                mirrored.q[0] ^= flip;
                mirrored.q[1] ^= flip;
                EXPECT_TRUE(same_bits(call(kernel.address, x).first, expected)) << kernel.symbol << hex(x);
                EXPECT_TRUE(same_bits(mirrored, expected)) << kernel.symbol << hex(x);
            }
        }
    }
}

// Directed rounding takes the wrong multiple of pi on the fast path, and the polynomial reaches past pi/2;
// where the multiple is truncated in any mode, and in the scalar routine, only the last places suffer.
TEST(SinCos2, DirectedRounding)
{
    const auto fast = with_negatives(sample_patterns(0x1p-60, 128000.0, 1000));
    const auto beyond = with_negatives(sample_patterns(first_beyond_sine, largest, 1000));
    for (const Function& function : {sine, cosine})
        for (const auto& kernel : entry(function.entry).kernels)
            for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero}) {
                const auto exact = mpfr_unary(function.exact);
                EXPECT_LE(worst_absolute_error(kernel.address, fast, exact, rounding), 6.2e-9)
                    << kernel.symbol;
                EXPECT_LE(worst_absolute_error(kernel.address, beyond, exact, rounding), 4e-16)
                    << kernel.symbol;
            }
}

TEST(SinCos2, Landmarks)
{
    for (const auto& kernel : entry("cos2").kernels)
        for (const double x : {0.0, 0x1p-1074, 1e-300, 0x1p-54})
            EXPECT_TRUE(same_bits(both_lanes(kernel, x).first, doubles(1, 1))) << kernel.symbol << ' ' << x;
    for (const auto& kernel : entry("sin2").kernels)
        for (const double x : {0x1p-1074, -0x1.8p-1030, 1e-300, 0x1p-30})
            EXPECT_TRUE(same_bits(both_lanes(kernel, x).first, doubles(x, x))) << kernel.symbol << ' ' << x;
}

} // namespace
} // namespace zelk::test
