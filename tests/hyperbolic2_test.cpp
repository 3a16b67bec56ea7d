// Double precision sinh, cosh and tanh.
#include "oracle.h"
#include "special_lanes.h"
#include "symmetry.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double quiet_nan = std::numeric_limits<double>::quiet_NaN();

constexpr double pattern(std::uint64_t bits)
{
    return std::bit_cast<double>(bits);
}

// Where e^-|x| leaves the exponent range, where tanh becomes 1, and where e^|x| / 2 passes 2^1024 with its
// own exponent.
constexpr double cosh_callout = pattern(0x4086233600000000);
constexpr double wrapped = pattern(0x40862336F49C3C50);
constexpr double above_2_1024 = pattern(0x408633C378987900);
// sinh and cosh: overflow by arithmetic from the first of these on, a stored infinity from the second.
constexpr double last_finite = pattern(0x408633CE8FB9F87D);
constexpr double stored_infinity = pattern(0x408633CF00000000);

TEST(Hyperbolic2, ErrorByPath)
{
    std::vector<double> boundaries;
    for (const double boundary : {708.375, cosh_callout, pattern(0x4086233700000000), wrapped, above_2_1024,
                                  pattern(0x408633C37898A000), last_finite, stored_infinity})
        boundaries = joined(std::move(boundaries), neighbours(boundary, 20));
    const struct {
        const char* name;
        std::vector<double> arguments;
        double bound_sinh;
        double bound_cosh;
        double bound_tanh;
    } paths[] = {
        {"below 2^-8", sample_patterns(smallest, 0x1p-8, 3000), 0.52, 0.76, 2.2},
        {"to 1", joined(sample_patterns(0x1p-8, 1.0, 4000), sample_interval(0x1p-8, 1.0, 4000)), 2.6, 0.76,
         3.8},
        {"to 22", sample_interval(1.0, 22.0, 6000), 1.02, 0.58, 3.2},
        {"to 708", sample_interval(22.0, 708.0, 5000), 0.53, 0.53, 2.0},
        {"near overflow", sample_interval(708.0, 710.48, 5000), 0.52, 0.52, 1.0},
        {"boundaries", boundaries, 0.52, 0.52, 0.51},
    };
    for (const auto& path : paths) {
        const auto arguments = with_negatives(path.arguments);
        for (const auto& kernel : entry("sinh2").kernels)
            expect_error_within(path.bound_sinh,
                                worst_error(kernel.address, arguments, mpfr_unary(mpfr_sinh)), kernel.symbol,
                                path.name);
        for (const auto& kernel : entry("cosh2").kernels)
            expect_error_within(path.bound_cosh,
                                worst_error(kernel.address, arguments, mpfr_unary(mpfr_cosh)), kernel.symbol,
                                path.name);
        for (const auto& kernel : entry("tanh2").kernels)
            expect_error_within(path.bound_tanh,
                                worst_error(kernel.address, arguments, mpfr_unary(mpfr_tanh)), kernel.symbol,
                                path.name);
    }
}

TEST(Hyperbolic2, SpecialLanes)
{
    const Special<double> sine[] = {
        {"+0", 0.0, 0.0},
        {"-0", -0.0, -0.0},
        {"stored infinity", stored_infinity, infinity},
        {"-711", -711.0, -infinity},
        {"largest", largest, infinity},
        {"-largest", -largest, -infinity},
        {"+inf", infinity, infinity},
        {"-inf", -infinity, -infinity},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_d, quiet_nan, flag_invalid},
    };
    const Special<double> cosine[] = {
        {"+0", 0.0, 1.0},
        {"-0", -0.0, 1.0},
        {"stored infinity", -stored_infinity, infinity},
        {"711", 711.0, infinity},
        {"-largest", -largest, infinity},
        {"+inf", infinity, infinity},
        {"-inf", -infinity, infinity},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_d, quiet_nan, flag_invalid},
    };
    const Special<double> tangent[] = {
        {"+0", 0.0, 0.0},
        {"-0", -0.0, -0.0},
        {"first saturated", wrapped, 1.0},
        {"708.5", 708.5, 1.0},
        {"-711", -711.0, -1.0},
        {"largest", largest, 1.0},
        {"+inf", infinity, 1.0},
        {"-inf", -infinity, -1.0},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_d, quiet_nan, flag_invalid},
    };
    for (const auto& kernel : entry("sinh2").kernels)
        check_specials(kernel, sine, -2.5, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("cosh2").kernels)
        check_specials(kernel, cosine, -2.5, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("tanh2").kernels)
        check_specials(kernel, tangent, -2.5, OrdinaryLanes::keep_bits);
}

TEST(Hyperbolic2, SmallestArgumentsAreTheirOwnResult)
{
    const Special<double> cases[] = {{"smallest", smallest, smallest},
                                     {"-smallest", -smallest, -smallest},
                                     {"smallest normal", 0x1p-1022, 0x1p-1022}};
    const Rounding nearest[] = {Rounding::nearest};
    for (const char* name : {"sinh2", "tanh2"})
        for (const auto& kernel : entry(name).kernels)
            check_specials(kernel, cases, 2.5, OrdinaryLanes::keep_bits, nearest);
}

// The NaN is a stored pattern, whatever the sign and payload of the argument.
TEST(Hyperbolic2, NanPattern)
{
    for (const char* name : {"sinh2", "cosh2", "tanh2"})
        for (const auto& kernel : entry(name).kernels)
            for (const std::uint64_t bits : {0x7FF8000000000000, 0x7FF0000000000001, 0x7FFFFFFF00000000})
                for (const std::uint64_t sign : {std::uint64_t{0}, std::uint64_t{1} << 63}) {
                    EXPECT_EQ(call(kernel.address, quads(bits | sign, 0)).first.q[0], ~std::uint64_t{0})
                        << kernel.symbol << std::hex << bits;
                    EXPECT_EQ(call(kernel.address, quads(0, bits | sign)).first.q[1], ~std::uint64_t{0})
                        << kernel.symbol << std::hex << bits;
                }
}

TEST(Hyperbolic2, Overflow)
{
    const double first_overflow = std::nextafter(last_finite, infinity);
    const double last_overflow = std::nextafter(stored_infinity, 0.0);
    const Special<double> to_nearest[] = {
        {"first overflow", first_overflow, infinity, flag_overflow},
        {"710.4755...", pattern(0x408633CEC0000000), infinity, flag_overflow},
        {"last overflow", last_overflow, infinity, flag_overflow},
        {"stored", stored_infinity, infinity},
    };
    const Special<double> towards_zero[] = {
        {"first overflow", first_overflow, largest, flag_overflow},
        {"last overflow", last_overflow, largest, flag_overflow},
        {"stored", stored_infinity, infinity},
    };
    const Rounding nearest[] = {Rounding::nearest};
    const Rounding zero[] = {Rounding::zero, Rounding::down};
    for (const char* name : {"sinh2", "cosh2"})
        for (const auto& kernel : entry(name).kernels) {
            check_specials(kernel, to_nearest, 1.25, OrdinaryLanes::keep_bits, nearest);
            check_specials(kernel, towards_zero, 1.25, OrdinaryLanes::keep_bits, zero);
            const Result finite = call(kernel.address, doubles(last_finite, 710.47));
            EXPECT_TRUE(std::isfinite(finite.first.d[0]) && std::isfinite(finite.first.d[1]))
                << kernel.symbol << hex(finite.first);
            EXPECT_EQ(finite.flags & loud_flags, 0u) << kernel.symbol;
        }
}

// n = round(|x| 64/ln 2) follows the rounding mode, so the windows in which e^-|x| or the scale of e^|x|
// leaves the exponent range move with it. No mode may lose a finite result there.
TEST(Hyperbolic2, ExponentRangeInEveryRoundingMode)
{
    const auto arguments =
        joined(joined(sample_interval(708.39, 708.41, 1500), sample_interval(710.46, 710.4755, 1500)),
               joined(neighbours(cosh_callout, 5), neighbours(wrapped, 5)));
    const struct {
        const char* name;
        Unary exact;
    } functions[] = {
        {"sinh2", mpfr_unary(mpfr_sinh)}, {"cosh2", mpfr_unary(mpfr_cosh)}, {"tanh2", mpfr_unary(mpfr_tanh)}};
    for (const auto& function : functions)
        for (const auto& kernel : entry(function.name).kernels)
            for (const Rounding rounding : all_roundings)
                for (const double x : arguments) {
                    const Result result = call(kernel.address, doubles(x, x), {}, {}, nullptr, rounding);
                    EXPECT_EQ(result.flags & loud_flags, 0u) << kernel.symbol << ' ' << x;
                    Exact argument;
                    Exact value;
                    mpfr_set_d(argument.value, x, MPFR_RNDN);
                    function.exact(value.value, argument.value);
                    EXPECT_LE(ulp_error(result.first.d[0], value.value), 16)
                        << kernel.symbol << ' ' << x << ", rounding " << static_cast<unsigned>(rounding);
                }
}

TEST(Hyperbolic2, SymmetryAndTiers)
{
    const auto arguments = joined(sample_patterns(0x1p-40, 720.0, 2000), neighbours(708.375, 10));
    check_symmetry(entry("sinh2").kernels, Symmetry::odd, arguments);
    check_symmetry(entry("cosh2").kernels, Symmetry::even, arguments);
    check_symmetry(entry("tanh2").kernels, Symmetry::odd, arguments);
}

// Where tanh x rounds to 1, the quotient of the two sums is 1 or a neighbour of 1.
TEST(Hyperbolic2, TanhNearOne)
{
    const auto arguments = sample_interval(22.0, 708.4, 4000);
    for (const auto& kernel : entry("tanh2").kernels) {
        EXPECT_EQ(call(kernel.address, doubles(20.0, -20.0)).first.d[0], 1.0) << kernel.symbol;
        for (const double x : arguments) {
            const double y = call(kernel.address, doubles(x, x)).first.d[0];
            EXPECT_TRUE(y >= 1 - 0x1p-52 && y <= 1 + 0x1p-52) << kernel.symbol << ' ' << x << ' ' << y;
        }
    }
}

} // namespace
} // namespace zelk::test
