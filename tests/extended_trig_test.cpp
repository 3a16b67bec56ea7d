// Sine, cosine, tangent and the reduction of their arguments in the 80-bit format.
#include "hard_arguments.h"
#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelk::test {
namespace {

using namespace encoding;
using Sample = std::vector<long double>;

const struct {
    const char* name;
    int (*exact)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
} functions[] = {{"sinl_scalar", mpfr_sin}, {"cosl_scalar", mpfr_cos}, {"tanl_scalar", mpfr_tan}};

void measure(const std::string& path, const Sample& xs, double bound = 0.555,
             const Environment& environment = {})
{
    for (const auto& [name, exact] : functions) {
        const ScalarKernel kernel = scalar_kernel(name);
        expect_error_within(bound, worst_error(kernel, xs, mpfr_unary(exact), -1, environment), kernel.symbol,
                            path);
    }
}

TEST(ExtendedTrig, AllBinades)
{
    measure("all binades", with_negatives(sample_binades(smallest_exponent, largest_exponent, 8000)));
}

TEST(ExtendedTrig, ModerateArguments)
{
    measure("2^-45 to 2^13", with_negatives(sample_binades(-45, 12, 15000)));
    measure("a turn", sample_interval(-6.3L, 6.3L, 10000));
}

TEST(ExtendedTrig, NearMultiplesOfHalfPi)
{
    measure("near n pi/2", near_multiples_of_half_pi_l(16));
}

// Where the path changes: the tiny arguments, the cells of the grid and their corners, the angles whose sine
// or tangent is no longer taken from the table, the distance from a zero from which on it is, the first
// argument that is reduced by integers, the octants, the words of 2/pi.
TEST(ExtendedTrig, Thresholds)
{
    const long double quarter_pi = 0xC.90FDAA22168C235p-4L;
    Sample xs = neighbours(0x1p-40L, 3);
    for (int j = 1; j <= 1024; ++j)
        xs = joined(xs, neighbours(static_cast<long double>(j) * (quarter_pi / 256), 1));
    for (int n = 1; n <= 600; n += 23)
        for (const long double distance : {0x1p-18L, 20.5L * quarter_pi / 128, 15.5L * quarter_pi / 128})
            for (const long double offset : {distance, -distance})
                xs = joined(xs, neighbours(static_cast<long double>(2 * n) * quarter_pi + offset, 2));
    for (int n = 1; n <= 40; ++n)
        xs = joined(xs, neighbours(static_cast<long double>(n) * quarter_pi, 2));
    for (int exponent = 1; exponent < 16383; exponent = exponent < 700 ? exponent + 1 : exponent + 511)
        xs = joined(xs, neighbours(std::ldexp(1.0L, exponent), 1));
    measure("thresholds", with_negatives(xs));
}

TEST(ExtendedTrig, DirectedRounding)
{
    const Sample xs = joined(with_negatives(sample_binades(-50, 70, 3000)),
                             joined(sample_binades(-16445, 16383, 1000), near_multiples_of_half_pi_l(300)));
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero})
        measure("directed rounding", xs, 1.155, {rounding, 64, 0});
}

// 53 bits: every operation rounds to 2^11 ulp.
TEST(ExtendedTrig, ReducedPrecision)
{
    const Sample xs = with_negatives(sample_binades(-45, 16383, 4000));
    measure("53 bits", xs, 2.5 * 2048, {Rounding::nearest, 53, 0});
}

TEST(ExtendedTrig, SpecialArguments)
{
    const SpecialScalar odd[] = {{"+0", plus_zero, plus_zero},
                                 {"-0", minus_zero, minus_zero},
                                 {"+infinity", plus_infinity, quiet_nan, flag_invalid},
                                 {"-infinity", minus_infinity, quiet_nan, flag_invalid}};
    const SpecialScalar even[] = {{"+0", plus_zero, plus_one},
                                  {"-0", minus_zero, plus_one},
                                  {"+infinity", plus_infinity, quiet_nan, flag_invalid},
                                  {"-infinity", minus_infinity, quiet_nan, flag_invalid}};
    for (const auto& [name, exact] : functions) {
        const ScalarKernel kernel = scalar_kernel(name);
        if (exact == mpfr_cos)
            check_specials(kernel, even);
        else
            check_specials(kernel, odd);
        check_nan_arguments(kernel);
    }
    const ScalarKernel both = scalar_kernel("sincosl_scalar");
    check_specials(both, odd, 0);
    check_specials(both, even, 1);
    check_nan_arguments(both, 0);
    check_nan_arguments(both, 1);
}

// What is next to x, or to 1, in the direction of the rounding.
TEST(ExtendedTrig, TinyArguments)
{
    const Bits80 below_one = {~std::uint64_t{0}, 0x3FFE};
    for (const Bits80& x : {smallest_denormal, largest_denormal, smallest_normal, pseudo_denormal,
                            Bits80{0xFEDCBA9876543210, 0x3F00}}) {
        const long double value = number(x);
        const auto result = [&](const char* name, Rounding rounding) {
            return call_scalar(scalar_kernel(name), x, {}, {rounding, 64, 0}).value();
        };
        EXPECT_EQ(result("sinl_scalar", Rounding::nearest), value);
        EXPECT_EQ(result("sinl_scalar", Rounding::up), value);
        EXPECT_EQ(result("sinl_scalar", Rounding::down), std::nextafter(value, 0.0L));
        EXPECT_EQ(result("tanl_scalar", Rounding::nearest), value);
        EXPECT_EQ(result("tanl_scalar", Rounding::down), value);
        EXPECT_EQ(result("tanl_scalar", Rounding::up), std::nextafter(value, 1.0L));
        EXPECT_EQ(result("cosl_scalar", Rounding::nearest), 1.0L);
        EXPECT_EQ(result("cosl_scalar", Rounding::down), number(below_one));
    }
}

TEST(ExtendedTrig, PairHasTheBitsOfItsMembers)
{
    const ScalarKernel both = scalar_kernel("sincosl_scalar");
    for (const long double x :
         joined(with_negatives(sample_binades(-16445, 16383, 2000)), sample_interval(-40.0L, 40.0L, 2000))) {
        for (const Rounding rounding : all_roundings) {
            const Environment environment = {rounding, 64, 0};
            const ScalarResult pair = call_scalar(both, x, {}, environment);
            ASSERT_EQ(pair.stored[0], call_scalar(scalar_kernel("sinl_scalar"), x, {}, environment).extended);
            ASSERT_EQ(pair.stored[1], call_scalar(scalar_kernel("cosl_scalar"), x, {}, environment).extended);
        }
    }
}

// floor(x 4/pi) modulo 8, and x - n pi/2 for the nearest n.
class ExactReduction {
public:
    explicit ExactReduction(long double x)
    {
        mpfr_const_pi(pi_.value, MPFR_RNDN);
        mpfr_set_ld(x_.value, x, MPFR_RNDN);
        mpfr_div(quotient_.value, x_.value, pi_.value, MPFR_RNDN);
        mpfr_mul_2ui(quotient_.value, quotient_.value, 2, MPFR_RNDN);
        mpfr_floor(octant_.value, quotient_.value);
        mpfr_div_2ui(quotient_.value, quotient_.value, 1, MPFR_RNDN);
        mpfr_rint(quotient_.value, quotient_.value, MPFR_RNDN);
        mpfr_mul(quotient_.value, quotient_.value, pi_.value, MPFR_RNDN);
        mpfr_div_2ui(quotient_.value, quotient_.value, 1, MPFR_RNDN);
        mpfr_sub(rest, x_.value, quotient_.value, MPFR_RNDN);
        mpfr_set_ui(quotient_.value, 8, MPFR_RNDN);
        mpfr_fmod(octant_.value, octant_.value, quotient_.value, MPFR_RNDN);
        octant = (mpfr_get_si(octant_.value, MPFR_RNDN) + 8) % 8;
    }
    long octant;

private:
    static constexpr mpfr_prec_t precision = 16384 + 400;
    Exact pi_{precision};
    Exact x_{precision};
    Exact quotient_{precision};
    Exact octant_{precision};
    Exact rest_{precision};

public:
    mpfr_ptr rest = rest_.value;
};

TEST(ReducePi04l, OctantAndRest)
{
    const ScalarKernel kernel = scalar_kernel("reduce_pi04l");
    double worst = 0;
    const Sample xs = joined(sample_binades(-900, 16383, 2000),
                             joined(sample_interval(0.0L, 40.0L, 2000), near_multiples_of_half_pi_l(50)));
    for (const long double x : with_negatives(xs)) {
        const ScalarResult got = call_scalar(kernel, x);
        ExactReduction exact(x);
        ASSERT_EQ(got.integer, exact.octant) << hex(bits80(x));
        const double hi = got.stored_doubles[0];
        const double lo = got.stored_doubles[1];
        ASSERT_EQ(hi + lo, hi) << hex(bits80(x));
        const double size = std::fabs(hi);
        mpfr_sub_d(exact.rest, exact.rest, hi, MPFR_RNDN);
        mpfr_sub_d(exact.rest, exact.rest, lo, MPFR_RNDN);
        worst = std::max(worst, std::fabs(mpfr_get_d(exact.rest, MPFR_RNDN)) / size);
    }
    std::printf("[ MEASURED ] reduce_pi04l: relative error 2^%.1f\n", std::log2(worst));
    EXPECT_LT(worst, 0x1p-93);
}

TEST(ReducePi04l, BelowQuarterPiTheArgumentItself)
{
    const ScalarKernel kernel = scalar_kernel("reduce_pi04l");
    for (const long double x : {0.0L, 0x1p-1000L, 0x1.8000000000000002p-1L, 0xC.90FDAA22168C234p-4L}) {
        const ScalarResult plus = call_scalar(kernel, x);
        EXPECT_EQ(plus.integer, 0);
        EXPECT_EQ(plus.stored_doubles[0] + static_cast<long double>(plus.stored_doubles[1]), x);
        const ScalarResult minus = call_scalar(kernel, -x);
        EXPECT_EQ(minus.integer, x == 0 ? 0 : 7);
        EXPECT_EQ(minus.stored_doubles[0] + static_cast<long double>(minus.stored_doubles[1]), -x);
        EXPECT_TRUE(std::signbit(minus.stored_doubles[0]));
    }
}

TEST(ReducePi04l, NothingToReduce)
{
    const ScalarKernel kernel = scalar_kernel("reduce_pi04l");
    for (const Bits80& x : {plus_infinity, minus_infinity, quiet_nan, signalling_nan, unnormal}) {
        const ScalarResult got = call_scalar(kernel, x);
        EXPECT_EQ(got.integer, 0);
        EXPECT_TRUE(std::isnan(got.stored_doubles[0]) && std::isnan(got.stored_doubles[1]));
        EXPECT_EQ(got.flags & loud_flags, x == quiet_nan ? 0u : flag_invalid) << hex(x);
    }
}

} // namespace
} // namespace zelk::test
