// Sine and cosine of degrees in the 80-bit format.
#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelk::test {
namespace {

using namespace encoding;
using Sample = std::vector<long double>;

int sin_degrees(mpfr_ptr result, mpfr_srcptr x, mpfr_rnd_t mode)
{
    return mpfr_sinu(result, x, 360, mode);
}
int cos_degrees(mpfr_ptr result, mpfr_srcptr x, mpfr_rnd_t mode)
{
    return mpfr_cosu(result, x, 360, mode);
}

void measure(const std::string& path, const Sample& xs, double bound = 0.59,
             const Environment& environment = {})
{
    const ScalarKernel sine = scalar_kernel("sindl_scalar");
    expect_error_within(bound, worst_error(sine, xs, mpfr_unary(sin_degrees), -1, environment), sine.symbol,
                        path);
    const ScalarKernel cosine = scalar_kernel("cosdl_scalar");
    expect_error_within(bound, worst_error(cosine, xs, mpfr_unary(cos_degrees), -1, environment),
                        cosine.symbol, path);
}

TEST(ExtendedDegrees, ModerateArguments)
{
    measure("two turns", with_negatives(sample_interval(0.0L, 720.0L, 20000)));
    measure("2^-50 to 2^65", with_negatives(sample_binades(-50, 64, 15000)));
}

TEST(ExtendedDegrees, AllBinades)
{
    // x pi/180 with the denormal results; whole numbers of degrees.
    measure("tiny", with_negatives(sample_binades(-16445, -30, 8000)));
    measure("huge", with_negatives(sample_binades(60, 16383, 3000)));
}

// Half degrees between two rows, the ends of the fractional and of the 64-bit arguments.
TEST(ExtendedDegrees, Thresholds)
{
    Sample xs = neighbours(0x1p-40L, 3);
    for (int halves = 1; halves <= 1440; ++halves)
        xs = joined(xs, neighbours(static_cast<long double>(halves) / 2, 1));
    for (const int exponent : {-16439, -16382, -16377, -1, 0, 31, 32, 61, 62, 63, 64, 65, 77, 78, 79, 16383})
        xs = joined(xs, neighbours(std::ldexp(1.0L, exponent), 3));
    measure("thresholds", with_negatives(xs));
}

TEST(ExtendedDegrees, DirectedRounding)
{
    const Sample xs =
        joined(with_negatives(sample_binades(-50, 70, 3000)), sample_binades(-16445, -16370, 300));
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero})
        measure("directed rounding", xs, 1.12, {rounding, 64, 0});
}

TEST(ExtendedDegrees, ReducedPrecision)
{
    measure("53 bits", with_negatives(sample_interval(0.0L, 720.0L, 5000)), 2 * 2048.0,
            {Rounding::nearest, 53, 0});
}

// Every multiple of 30 whose sine or cosine is rational, at every size, in all roundings and precisions.
TEST(ExtendedDegrees, ExactAngles)
{
    constexpr Bits80 half = {integer_bit, 0x3FFE};
    constexpr Bits80 minus_half = {integer_bit, 0xBFFE};
    const struct {
        unsigned degrees;
        Bits80 sine; // of a positive number of degrees
    } angles[] = {{0, plus_zero},   {30, half},        {90, plus_one},   {150, half},
                  {180, plus_zero}, {210, minus_half}, {270, minus_one}, {330, minus_half}};
    std::vector<SpecialScalar> sines;
    std::vector<SpecialScalar> cosines;
    for (const auto& [degrees, sine] : angles) {
        for (const long double turns : {0.0L, 1.0L, 0x1p20L, 0x1p50L}) {
            const long double x = degrees + 360.0L * turns;
            Bits80 minus = sine;
            minus.sign_exponent ^= 0x8000;
            sines.push_back({"sine", bits80(x), sine});
            sines.push_back({"sine", bits80(-x), minus});
            // cos x = sin(x + 90); its zero is +0 on both sides.
            const long double y = x >= 90 ? x - 90 : x + 270;
            cosines.push_back({"cosine", bits80(y), sine});
            cosines.push_back({"cosine", bits80(-y), sine});
        }
    }
    check_specials(scalar_kernel("sindl_scalar"), sines);
    check_specials(scalar_kernel("cosdl_scalar"), cosines);
}

TEST(ExtendedDegrees, SpecialArguments)
{
    const SpecialScalar odd[] = {
        {"-0", minus_zero, minus_zero},
        {"+infinity", plus_infinity, quiet_nan, flag_invalid},
        {"-infinity", minus_infinity, quiet_nan, flag_invalid},
        {"360 2^16375", {0xB400000000000000, 0x7FFE}, plus_zero},
        {"the same, negative", {0xB400000000000000, 0xFFFE}, minus_zero},
    };
    const SpecialScalar even[] = {
        {"-0", minus_zero, plus_one},
        {"+infinity", plus_infinity, quiet_nan, flag_invalid},
        {"-infinity", minus_infinity, quiet_nan, flag_invalid},
        {"360 2^16375", {0xB400000000000000, 0x7FFE}, plus_one},
    };
    check_specials(scalar_kernel("sindl_scalar"), odd);
    check_specials(scalar_kernel("cosdl_scalar"), even);
    check_nan_arguments(scalar_kernel("sindl_scalar"));
    check_nan_arguments(scalar_kernel("cosdl_scalar"));
}

} // namespace
} // namespace zelk::test
