// 80-bit power.
#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelk::test {
namespace {

using namespace encoding;

// Exponents y that spread x^y over the binades low..high.
std::vector<long double> exponents_for(std::span<const long double> xs, long double low, long double high)
{
    Random random(9);
    std::vector<long double> ys;
    for (const long double x : xs) {
        const long double unit = static_cast<long double>(random.next()) * 0x1p-64L;
        ys.push_back((low + (high - low) * unit) / std::log2(x));
    }
    return ys;
}

// Results in the order nearest, down, up, zero; flags in every mode, but for the denormal operand's.
void expect_by_rounding(long double x, long double y, const Bits80 (&expected)[4], unsigned flags)
{
    for (const Rounding rounding : all_roundings) {
        const ScalarResult result = call_scalar(scalar_kernel("powl_scalar"), x, y, {rounding});
        const std::string context = hex(bits80(x)) + ' ' + hex(bits80(y));
        EXPECT_EQ(hex(result.extended), hex(expected[static_cast<unsigned>(rounding)])) << context;
        EXPECT_EQ(flag_names(result.flags & ~flag_denormal), flag_names(flags)) << context;
    }
}

TEST(Powl, ErrorByPath)
{
    const ScalarKernel kernel = scalar_kernel("powl_scalar");
    const Binary exact = mpfr_binary(mpfr_pow);
    const auto check = [&](std::span<const long double> xs, std::span<const long double> ys, const char* path,
                           const Environment& environment = {}, double bound = 0.51) {
        expect_error_within(bound, worst_error(kernel, xs, ys, exact, -1, environment), kernel.symbol, path);
    };
    const auto wide = sample_binades(smallest_exponent, largest_exponent, 6000, 3);
    std::vector<long double> near_one;
    for (const long double d : sample_binades(-63, -2, 3000)) {
        near_one.push_back(1.0L + d);
        near_one.push_back(1.0L - d);
    }
    const auto middle = sample_interval(0.5L, 2.0L, 6000);
    check(wide, exponents_for(wide, -16380, 16384), "all binades, normal results");
    check(wide, exponents_for(wide, -16446, -16382), "all binades, denormal results");
    check(wide, exponents_for(wide, -1, 1), "all binades, results next to 1");
    check(near_one, exponents_for(near_one, -16380, 16384), "next to 1, normal results");
    check(near_one, exponents_for(near_one, -16446, -16382), "next to 1, denormal results");
    check(middle, exponents_for(middle, -16380, 16384), "0.5..2, normal results");
    check(middle, exponents_for(middle, -8, 8), "0.5..2, small exponents");
    for (const long double y : {0.5L, -0.5L, -1.0L, 2.0L, 3.0L, -2.0L, 1.5L}) {
        const auto xs = sample_binades(-5000, 5000, 1000);
        check(xs, std::vector<long double>(xs.size(), y), "simple exponents");
    }
    const auto denormals = sample_binades(smallest_exponent, -16383, 500);
    for (const long double y : {0.5L, -0.5L, 0.75L, -0.25L})
        check(denormals, std::vector<long double>(denormals.size(), y), "denormal bases");
    // Powers of two whose exponent falls next to an integer, and on it.
    std::vector<long double> powers_of_two;
    std::vector<long double> near_integers;
    Random random(4);
    for (int i = 0; i < 1000; ++i) {
        const int e = static_cast<int>(random.next() % 32700) - 16380;
        const auto n = static_cast<long double>(static_cast<int>(random.next() % 32000) - 16000);
        powers_of_two.push_back(std::ldexp(1.0L, e == 0 ? 1 : e));
        near_integers.push_back(n / static_cast<long double>(e == 0 ? 1 : e));
    }
    check(powers_of_two, near_integers, "powers of two");
    const auto short_bases = sample_interval(2.0L, 3.0L, 500);
    std::vector<long double> integers;
    for (std::size_t i = 0; i < short_bases.size(); ++i)
        integers.push_back(static_cast<long double>(i % 80) - 40);
    std::vector<long double> rounded_bases;
    for (const long double x : short_bases)
        rounded_bases.push_back(std::floor(x * 8) / 8);
    check(rounded_bases, integers, "short bases, integer exponents");

    const auto few = sample_interval(0.1L, 50.0L, 1000);
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero})
        check(few, exponents_for(few, -16380, 16384), "directed rounding", {rounding}, 1.03);
}

// Powers that are numbers of the format come exactly and without a flag, in every rounding mode.
TEST(Powl, ExactPowers)
{
    const struct {
        long double x;
        long double y;
        long double expected;
    } cases[] = {
        {2, 10, 1024},
        {-2, 3, -8},
        {-2, 4, 16},
        {3, 40, 12157665459056928801.0L},
        {-3, 39, -4052555153018976267.0L},
        {1.5L, 20, 3486784401 * 0x1p-20L},
        {10, 19, 1e19L},
        {7, 1, 7},
        {-0.1L, 1, -0.1L},
        {0.5L, 16445, 0x1p-16445L},
        {0.5L, -16383, 0x1p16383L},
        {-2, -16445, -0x1p-16445L},
        {4, 0.5L, 2},
        {0x1p-16444L, 0.5L, 0x1p-8222L},
        {0x1p-16444L, -0.5L, 0x1p8222L},
        {16, 0.25L, 2},
        {16, -0.75L, 0.125L},
        {1, 1e30L, 1},
        {1, -3.3L, 1},
        {-1, 0x1p63L, 1},
        {-1, 0x1p63L - 1, -1},
        {-1, 1e30L, 1},
        {-1, -1e4000L, 1},
        {6.25L, 0.5L, 2.5L},
        {0x1.8p-16382L, 1, 0x1.8p-16382L},
        {3 * 0x1p-8200L, 2, 9 * 0x1p-16400L},
    };
    for (const auto& [x, y, expected] : cases) {
        const Bits80 bits = bits80(expected);
        expect_by_rounding(x, y, {bits, bits, bits, bits}, 0);
    }
    // Exact powers that go through the logarithm: in round to nearest.
    const struct {
        long double x;
        long double y;
        long double expected;
    } rounded[] = {{81, 0.75L, 27},    {0x1.8p1L, 2, 9},   {6561, 0.125L, 3},
                   {59049, 0.5L, 243}, {625, 1.25L, 3125}, {2.25L, 1.5L, 3.375L}};
    for (const auto& [x, y, expected] : rounded)
        EXPECT_EQ(hex(call_scalar(scalar_kernel("powl_scalar"), x, y).extended), hex(bits80(expected)))
            << hex(bits80(x));
}

TEST(Powl, OverflowAndUnderflow)
{
    const ScalarKernel kernel = scalar_kernel("powl_scalar");
    const struct {
        long double x;
        long double y;
        unsigned flags;
        Bits80 by_rounding[4]; // nearest, down, up, zero
    } cases[] = {
        {2, 16384, flag_overflow, {plus_infinity, largest, plus_infinity, largest}},
        {-2, 16385, flag_overflow, {minus_infinity, minus_infinity, minus_largest, minus_largest}},
        {3, 20000.5L, flag_overflow, {plus_infinity, largest, plus_infinity, largest}},
        {1 + 0x1p-63L, 1e300L, flag_overflow, {plus_infinity, largest, plus_infinity, largest}},
        {-1.5L, -1e300L, flag_underflow, {plus_zero, plus_zero, smallest_denormal, plus_zero}},
        {-3, -20001, flag_underflow, {minus_zero, minus_smallest_denormal, minus_zero, minus_zero}},
        {0.5L, 16447, flag_underflow, {plus_zero, plus_zero, smallest_denormal, plus_zero}},
        {1 - 0x1p-64L, 1e4000L, flag_underflow, {plus_zero, plus_zero, smallest_denormal, plus_zero}},
        {3, -1e10L, flag_underflow, {plus_zero, plus_zero, smallest_denormal, plus_zero}},
    };
    for (const auto& [x, y, flags, by_rounding] : cases)
        expect_by_rounding(x, y, by_rounding, flags | flag_inexact);
    // Next to the largest number, overflow comes with the infinity and not before.
    for (const long double y : neighbours(16384 / std::log2(3.0L), 60)) {
        const ScalarResult result = call_scalar(kernel, 3.0L, y);
        EXPECT_EQ((result.flags & flag_overflow) != 0, std::isinf(result.value())) << hex(bits80(y));
    }
}

TEST(Powl, Specials)
{
    const Bits80 three = bits80(3.0L);
    const Bits80 minus_three = bits80(-3.0L);
    const Bits80 two = bits80(2.0L);
    const Bits80 minus_two = bits80(-2.0L);
    const Bits80 half = bits80(0.5L);
    const Bits80 minus_half = bits80(-0.5L);
    const Bits80 odd = {~std::uint64_t{0}, 0x403E}; // 2^64 - 1
    const Bits80 minus_odd = {~std::uint64_t{0}, 0xC03E};
    const Bits80 even = {integer_bit, 0x403F};           // 2^64
    const Bits80 fraction = {~std::uint64_t{0}, 0x403D}; // 2^63 - 1/2
    const SpecialScalar cases[] = {
        {"x^0", three, plus_one, 0, plus_zero},
        {"x^-0", minus_three, plus_one, 0, minus_zero},
        {"NaN^0", quiet_nan, plus_one, 0, plus_zero},
        {"inf^0", minus_infinity, plus_one, 0, minus_zero},
        {"0^0", plus_zero, plus_one, 0, plus_zero},
        {"sNaN^0", signalling_nan, quiet_nan, flag_invalid, plus_zero},
        {"1^NaN", plus_one, plus_one, 0, quiet_nan},
        {"1^inf", plus_one, plus_one, 0, minus_infinity},
        {"1^sNaN", plus_one, quiet_nan, flag_invalid, signalling_nan},
        {"1^unnormal", plus_one, quiet_nan, flag_invalid, unnormal},
        {"-1^inf", minus_one, plus_one, 0, plus_infinity},
        {"-1^-inf", minus_one, plus_one, 0, minus_infinity},
        {"-1^NaN", minus_one, quiet_nan, 0, quiet_nan},
        {"0^3", plus_zero, plus_zero, 0, three},
        {"-0^3", minus_zero, minus_zero, 0, three},
        {"-0^2", minus_zero, plus_zero, 0, two},
        {"-0^0.5", minus_zero, plus_zero, 0, half},
        {"-0^odd", minus_zero, minus_zero, 0, odd},
        {"-0^even", minus_zero, plus_zero, 0, even},
        {"-0^fraction", minus_zero, plus_zero, 0, fraction},
        {"0^-3", plus_zero, plus_infinity, flag_divide_by_zero, minus_three},
        {"-0^-3", minus_zero, minus_infinity, flag_divide_by_zero, minus_three},
        {"-0^-odd", minus_zero, minus_infinity, flag_divide_by_zero, minus_odd},
        {"-0^-2", minus_zero, plus_infinity, flag_divide_by_zero, minus_two},
        {"-0^-0.5", minus_zero, plus_infinity, flag_divide_by_zero, minus_half},
        {"0^inf", minus_zero, plus_zero, 0, plus_infinity},
        {"inf^3", plus_infinity, plus_infinity, 0, three},
        {"inf^-3", plus_infinity, plus_zero, 0, minus_three},
        {"-inf^3", minus_infinity, minus_infinity, 0, three},
        {"-inf^2", minus_infinity, plus_infinity, 0, two},
        {"-inf^0.5", minus_infinity, plus_infinity, 0, half},
        {"-inf^-3", minus_infinity, minus_zero, 0, minus_three},
        {"-inf^-2", minus_infinity, plus_zero, 0, minus_two},
        {"inf^inf", plus_infinity, plus_infinity, 0, plus_infinity},
        {"-inf^-inf", minus_infinity, plus_zero, 0, minus_infinity},
        {"2^inf", two, plus_infinity, 0, plus_infinity},
        {"2^-inf", two, plus_zero, 0, minus_infinity},
        {"0.5^inf", half, plus_zero, 0, plus_infinity},
        {"-0.5^-inf", minus_half, plus_infinity, 0, minus_infinity},
        {"-2^0.5", minus_two, quiet_nan, flag_invalid, half},
        {"-2^fraction", minus_two, quiet_nan, flag_invalid, fraction},
        {"-2^tiny", minus_two, quiet_nan, flag_invalid, smallest_denormal},
        {"-denormal^-0.5", minus_smallest_denormal, quiet_nan, flag_invalid, minus_half},
    };
    const ScalarKernel kernel = scalar_kernel("powl_scalar");
    check_specials(kernel, cases);
    check_nan_arguments(kernel, -1, two);
    // 0^-inf: infinity; the pole's flag may come with it.
    EXPECT_EQ(hex(call_scalar(kernel, plus_zero, minus_infinity).extended), hex(plus_infinity));
    // A pseudo-denormal base is the normal number of its significand.
    EXPECT_EQ(hex(call_scalar(kernel, pseudo_denormal, 0.7L).extended),
              hex(call_scalar(kernel, Bits80{0xC000000000000000, 1}, 0.7L).extended));
}

// Exponents so small that the power is 1 and something unseen.
TEST(Powl, TinyExponents)
{
    const Bits80 above_one = {integer_bit + 1, 0x3FFF};
    const Bits80 below_one = {~std::uint64_t{0}, 0x3FFE};
    for (const long double y : {1e-30L, 1e-4940L, 0x1p-79L, 0x1p-80L, 0x1p-81L}) {
        for (const bool grows : {true, false}) {
            const long double x = grows ? 3.0L : 0.3L;
            const Bits80 expected[] = {plus_one, grows ? plus_one : below_one, grows ? above_one : plus_one,
                                       grows ? plus_one : below_one};
            expect_by_rounding(x, y, expected, flag_inexact);
        }
    }
}

} // namespace
} // namespace zelk::test
