// Square roots and reciprocal square roots.
#include "extremes.h"
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

namespace zelk::test {
namespace {

TEST(Sqrt, ErrorByPath)
{
    const auto normal = joined(sample_patterns(smallest_normal<float>, largest<float>, 20000),
                               sample_interval(0.25f, 4.0f, 20000));
    auto beside_special = normal;
    for (std::size_t i = 3; i < beside_special.size(); i += 4)
        beside_special[i] = 0.0f;
    for (const auto& kernel : entry("sqrtf4").kernels) {
        expect_error_within(3.7, worst_error(kernel.address, normal, mpfr_unary(mpfr_sqrt)), kernel.symbol,
                            "fast");
        expect_error_within(0.5, worst_error(kernel.address, beside_special, mpfr_unary(mpfr_sqrt)),
                            kernel.symbol, "beside a special lane");
        expect_error_within(0.5,
                            worst_error(kernel.address, sample_patterns(smallest<float>, 0x1p-126f, 5000),
                                        mpfr_unary(mpfr_sqrt)),
                            kernel.symbol, "subnormal");
    }
    for (const auto& kernel : entry("invsqrtf4").kernels) {
        // With the largest error of one processor's estimates.
        expect_error_within(
            2.63, worst_error(kernel.address, joined(normal, {0x1.0570e6p-112f}), mpfr_unary(mpfr_rec_sqrt)),
            kernel.symbol, "fast");
        expect_error_within(1.5,
                            worst_error(kernel.address,
                                        sample_patterns(smallest<float>, 0x1.fffffcp-127f, 5000),
                                        mpfr_unary(mpfr_rec_sqrt)),
                            kernel.symbol, "subnormal");
    }
    const auto doubles_all =
        joined(sample_patterns(smallest<double>, largest<double>, 20000), sample_interval(0.25, 4.0, 20000));
    for (const auto& kernel : entry("sqrt2").kernels)
        expect_error_within(0.5, worst_error(kernel.address, doubles_all, mpfr_unary(mpfr_sqrt)),
                            kernel.symbol, "all");
    for (const auto& kernel : entry("invsqrt2").kernels) {
        const auto check = [&](double from, double to, const char* path) {
            expect_error_within(
                0.51,
                worst_error(kernel.address, sample_patterns(from, to, 20000), mpfr_unary(mpfr_rec_sqrt)),
                kernel.symbol, path);
        };
        check(smallest_normal<double>, std::nextafter(0x1p1022, 0.0), "fast");
        check(0.25, 4.0, "fast, one period of exponents");
        check(0x1p1022, largest<double>, "scalar, huge");
        check(smallest<double>, std::nextafter(smallest_normal<double>, 0.0), "scalar, subnormal");
    }
}

// Powers of four are exact in the double kernel; the thresholds of its special-lane test and their
// neighbours.
TEST(Sqrt, Invsqrt2Thresholds)
{
    std::vector<double> arguments;
    for (int n = -537; n <= 511; ++n)
        arguments.push_back(std::ldexp(1.0, 2 * n));
    for (const double bound : {smallest_normal<double>, 0x1p1022, 1.0, 2.0, largest<double>})
        for (const double x : neighbours(bound, 8))
            if (std::isfinite(x)) arguments.push_back(x);
    for (const auto& kernel : entry("invsqrt2").kernels) {
        expect_error_within(0.51, worst_error(kernel.address, arguments, mpfr_unary(mpfr_rec_sqrt)),
                            kernel.symbol, "thresholds");
        for (int n = -537; n <= 511; ++n) {
            const double x = std::ldexp(1.0, 2 * n);
            const Result result = call(kernel.address, doubles(x, 4.0));
            EXPECT_EQ(result.first.d[0], std::ldexp(1.0, -n)) << kernel.symbol << ' ' << n;
            EXPECT_EQ(result.first.d[1], 0.5) << kernel.symbol << ' ' << n;
        }
    }
}

template <class T>
std::vector<Special<T>> specials(bool reciprocal, bool quiet)
{
    const unsigned invalid = quiet ? 0u : flag_invalid;
    const unsigned pole = quiet ? 0u : flag_divide_by_zero;
    return {
        {"+0", T(0), reciprocal ? infinity<T> : T(0), reciprocal ? pole : 0u},
        {"-0", T(-0.0), reciprocal ? -infinity<T> : T(-0.0), reciprocal ? pole : 0u},
        {"+inf", infinity<T>, reciprocal ? T(0) : infinity<T>},
        {"-inf", -infinity<T>, quiet_nan<T>, invalid},
        {"-1", T(-1), quiet_nan<T>, invalid},
        {"-smallest", -smallest<T>, quiet_nan<T>, invalid},
        {"NaN", quiet_nan<T>, quiet_nan<T>},
    };
}

TEST(Sqrt, SpecialLanes)
{
    const Special<float> signalling_f[] = {
        {"signalling NaN", signalling_nan_f, quiet_nan<float>, flag_invalid}};
    const Special<double> signalling_d[] = {
        {"signalling NaN", signalling_nan_d, quiet_nan<double>, flag_invalid}};
    for (const auto& kernel : entry("sqrtf4").kernels) {
        check_specials(kernel, specials<float>(false, false), 2.0f, OrdinaryLanes::any);
        check_specials(kernel, signalling_f, 2.0f, OrdinaryLanes::any);
    }
    for (const auto& kernel : entry("invsqrtf4").kernels) {
        check_specials(kernel, specials<float>(true, false), 2.0f, OrdinaryLanes::keep_bits);
        check_specials(kernel, signalling_f, 2.0f, OrdinaryLanes::keep_bits);
    }
    for (const auto& kernel : entry("sqrt2").kernels) {
        check_specials(kernel, specials<double>(false, false), 2.0, OrdinaryLanes::keep_bits);
        check_specials(kernel, signalling_d, 2.0, OrdinaryLanes::keep_bits);
    }
    for (const auto& kernel : entry("invsqrt2").kernels) {
        check_specials(kernel, specials<double>(true, true), 2.0, OrdinaryLanes::keep_bits);
        check_specials(kernel, signalling_d, 2.0, OrdinaryLanes::keep_bits);
    }
}

// One irregular lane sends the whole vector to the hardware, so that squares come back exactly.
TEST(Sqrt, WholeVectorThroughTheHardware)
{
    for (const auto& kernel : entry("sqrtf4").kernels) {
        const Result result = call(kernel.address, floats(4, 9, 16, -1));
        EXPECT_EQ(result.first.f[0], 2.0f);
        EXPECT_EQ(result.first.f[1], 3.0f);
        EXPECT_EQ(result.first.f[2], 4.0f);
        EXPECT_TRUE(std::isnan(result.first.f[3]));
    }
}

TEST(Sqrt, Scalars)
{
    const auto root_d = reinterpret_cast<double (*)(double)>(const_cast<void*>(exported("sqrt_scalar")));
    const auto root_f = reinterpret_cast<float (*)(float)>(const_cast<void*>(exported("sqrtf_scalar")));
    const auto root_l =
        reinterpret_cast<long double (*)(long double)>(const_cast<void*>(exported("sqrtl_scalar")));
    double worst_d = 0;
    double worst_l = 0;
    Exact x;
    for (const double argument : sample_patterns(smallest<double>, largest<double>, 20000)) {
        mpfr_set_d(x.value, argument, MPFR_RNDN);
        mpfr_sqrt(x.value, x.value, MPFR_RNDN);
        worst_d = std::max(worst_d, ulp_error(root_d(argument), x.value));
        worst_l = std::max(worst_l, ulp_error(root_l(argument), x.value));
    }
    // Rounded twice: to 64 bits, then to 53.
    EXPECT_LE(worst_d, 0.5005);
    EXPECT_LE(worst_l, 0.5);
    for (const float argument : sample_patterns(smallest<float>, largest<float>, 5000)) {
        mpfr_set_flt(x.value, argument, MPFR_RNDN);
        mpfr_sqrt(x.value, x.value, MPFR_RNDN);
        EXPECT_LE(ulp_error(root_f(argument), x.value), 0.5) << argument;
    }
    EXPECT_TRUE(std::isnan(root_d(-1.0)));
    EXPECT_TRUE(std::signbit(root_f(-0.0f)));
    EXPECT_EQ(root_l(infinity<long double>), infinity<long double>);
}

} // namespace
} // namespace zelk::test
