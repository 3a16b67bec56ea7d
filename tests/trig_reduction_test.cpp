// The scalar reduction behind tangent and the sine-cosine pairs, which the library does not export.
#include "hard_arguments.h"
#include "oracle.h"

#include "trig/trig_reduction.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

enum Mode { sine, cosine, quadrant };
constexpr const char* mode_names[] = {"sine mode", "cosine mode", "quadrant mode"};

struct Reduced {
    double r;
    std::int32_t result;
};

Reduced reduce(Mode mode, double x)
{
    Reduced reduced{};
#if defined(__x86_64__)
    reduced.result = tier_A::__zelk_trig_reduction(&reduced.r, mode, x);
#else
    const auto routine = mode == sine     ? tier_A::__zelk_sin_reduction_LA
                         : mode == cosine ? tier_A::__zelk_cos_reduction_LA
                                          : tier_A::__zelk_pi04_reduction_LA;
    reduced.result = routine(&reduced.r, x);
#endif
    return reduced;
}

// Enough for x - n pi/2 with the largest x and the smallest difference.
constexpr mpfr_prec_t precision = 1400;

// The error of r in ulps against x - n pi/2, for the n that it belongs to; n itself is checked against the
// result.
double error(Mode mode, double x)
{
    Exact half_pi(precision);
    mpfr_const_pi(half_pi.value, MPFR_RNDN);
    mpfr_div_2ui(half_pi.value, half_pi.value, 1, MPFR_RNDN);
    const Reduced got = reduce(mode, x);
    const double largest_r = mode == quadrant ? 0.79 : 1.71;
    EXPECT_LE(std::fabs(got.r), largest_r) << mode_names[mode] << ' ' << std::hexfloat << x;

    Exact exact(precision);
    Exact multiple(precision);
    Exact n(precision);
    mpfr_set_d(exact.value, x, MPFR_RNDN);
    mpfr_sub_d(n.value, exact.value, got.r, MPFR_RNDN);
    mpfr_div(n.value, n.value, half_pi.value, MPFR_RNDN);
    mpfr_rint(n.value, n.value, MPFR_RNDN);
    mpfr_mul(multiple.value, n.value, half_pi.value, MPFR_RNDN);
    mpfr_sub(exact.value, exact.value, multiple.value, MPFR_RNDN);
    mpfr_fmod_ui(n.value, n.value, 4, MPFR_RNDN);
    const int n_mod_4 = static_cast<int>(mpfr_get_si(n.value, MPFR_RNDN)) & 3;
    if (mode == quadrant) {
        EXPECT_EQ(got.result & 3, n_mod_4) << std::hexfloat << x;
    } else {
        // sin x = (-1)^(n/2) sin r for even n; cos x = -(-1)^((n-1)/2) sin r for odd n.
        EXPECT_EQ(n_mod_4 & 1, mode == cosine) << mode_names[mode] << ' ' << std::hexfloat << x;
        const bool negative = ((n_mod_4 & 2) != 0) != (mode == cosine);
        EXPECT_EQ(static_cast<std::uint32_t>(got.result), negative ? 0x80000000u : 0u)
            << mode_names[mode] << ' ' << std::hexfloat << x;
    }
    return ulp_error(got.r, exact.value);
}

void expect_errors_within(double bound, const std::vector<double>& arguments, const char* path)
{
    for (const Mode mode : {sine, cosine, quadrant}) {
        Worst worst;
        for (const double x : arguments) {
            const double e = error(mode, x);
            if (e > worst.ulp) worst = {e, x, 0, reduce(mode, x).r};
        }
        expect_error_within(bound, worst, mode_names[mode], path);
        if (testing::Test::HasFailure()) return;
    }
}

constexpr double largest = std::numeric_limits<double>::max();

TEST(TrigReduction, Error)
{
    expect_errors_within(1.05, sample_patterns(0x1p-5, std::nextafter(0x1p30, 0), 20000), "five parts");
    expect_errors_within(1.05, sample_patterns(0x1p30, largest, 30000), "pieces");
    expect_errors_within(1.05, near_multiples_of_half_pi(), "nearest to multiples of pi/2");
}

// Every exponent has its own place in the pieces; so have both ends of every binade.
TEST(TrigReduction, EveryBinade)
{
    std::vector<double> arguments;
    for (int e = 0; e < 1024; ++e) {
        const double power = std::ldexp(1.0, e);
        arguments.insert(arguments.end(), {std::nextafter(power, 0), power, std::nextafter(power, largest)});
    }
    expect_errors_within(1.05, joined(arguments, neighbours(largest, 0)), "ends of binades");
}

TEST(TrigReduction, Landmarks)
{
    constexpr std::int32_t minus = std::numeric_limits<std::int32_t>::min();
    const struct {
        Mode mode;
        double x;
        std::int32_t result;
        double r;
    } rows[] = {
        {quadrant, 0.0, 0, 0.0},
        {sine, 0.0, 0, 0.0},
        {cosine, 0.0, minus, -1.5707963267948966},
        {quadrant, 5.0, 3, 0.28761101961531016},
        {quadrant, 1e22, 193218019, 0.5506189342358097},
        {sine, 1e22, 0, -1.020177392559087},
        {quadrant, 0x1p30, 683565276, -0.6653397029163253},
        {quadrant, std::nextafter(0x1p30, 0), 683565276, -0.6653398221256148},
        {quadrant, largest, 408323538, -0.004961975150787273},
    };
    for (const auto& row : rows) {
        const Reduced got = reduce(row.mode, row.x);
        EXPECT_EQ(got.result, row.result) << mode_names[row.mode] << ' ' << row.x;
        EXPECT_EQ(got.r, row.r) << mode_names[row.mode] << ' ' << row.x;
        EXPECT_FALSE(row.x == 0 && row.r == 0 && std::signbit(got.r)) << mode_names[row.mode];
    }
    for (const Mode mode : {sine, cosine})
        EXPECT_EQ(reduce(mode, largest).result, minus) << mode_names[mode];
}

TEST(TrigReduction, SpecialArgumentsAndFlags)
{
    const struct {
        double x;
        bool is_nan;
        int flags;
    } rows[] = {
        {std::numeric_limits<double>::infinity(), true, FE_INVALID},
        {std::numeric_limits<double>::quiet_NaN(), true, 0},
        {0.0, false, 0},
        {std::numeric_limits<double>::denorm_min(), false, 0},
        {std::nextafter(0x1p30, 0), false, 0},
        {0x1p30, false, 0},
        {largest, false, 0},
    };
    for (const auto& row : rows)
        for (const Mode mode : {sine, cosine, quadrant}) {
            std::feclearexcept(FE_ALL_EXCEPT);
            const Reduced got = reduce(mode, row.x);
            EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW), row.flags)
                << mode_names[mode] << ' ' << row.x;
            EXPECT_EQ(std::isnan(got.r), row.is_nan) << mode_names[mode] << ' ' << row.x;
            if (row.is_nan) {
                EXPECT_EQ(got.result, 0) << mode_names[mode] << ' ' << row.x;
            }
        }
}

} // namespace
} // namespace zelk::test
