// The complex exponential.
#include "complex_oracle.h"
#include "hard_arguments.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelk::test {
namespace {

template <class T>
using Limits = std::numeric_limits<T>;

template <class T>
std::vector<std::complex<T>> numbers(const std::vector<T>& re, const std::vector<T>& im)
{
    return all_quadrants<T>(re, im);
}
std::vector<float> hard_angles(float)
{
    return near_multiples_of_half_pi_f();
}
std::vector<double> hard_angles(double)
{
    return near_multiples_of_half_pi();
}
// Angles next to multiples of pi/2, where a part of the result is tiny, for all sizes of e^x.
template <class T>
std::vector<std::complex<T>> near_axes(T largest_re, T largest_im)
{
    std::vector<T> angles;
    for (int n = 1; n < 200; ++n)
        for (const T y : neighbours(static_cast<T>(n * 0x1.921fb54442d18p0), 1))
            angles.push_back(y);
    for (const T y : hard_angles(T{}))
        if (std::fabs(y) <= largest_im) angles.push_back(std::fabs(y));
    return numbers(sample_interval(T(0), largest_re, 100, 1), angles);
}

TEST(Cexp, VectorError)
{
    const auto& kernels = entry("cexpf2").kernels;
    const float bound_re = 87.3365479f;
    const float bound_im = 10000;
    const auto check = [&](double bound, const std::vector<std::complex<float>>& arguments,
                           const char* path) {
        expect_errors_within(bound, bound, worst_errors(kernels, arguments, mpc_exp), path);
    };
    check(4.03, numbers(sample_interval(0.0f, bound_re, 2000, 2), sample_interval(0.0f, bound_im, 2000, 3)),
          "fast");
    check(
        2.1,
        numbers(sample_patterns(0x1p-149f, bound_re, 2000, 4), sample_patterns(0x1p-149f, bound_im, 2000, 5)),
        "fast, small parts");
    check(4.03, near_axes(bound_re, bound_im), "fast, near the axes");
    check(4.03, numbers(neighbours(bound_re, 2), sample_interval(0.0f, bound_im, 200, 6)), "threshold of x");
    check(4.03, numbers(sample_interval(0.0f, bound_re, 200, 7), neighbours(bound_im, 2)), "threshold of y");
    // The largest errors of e^x meet those of the sine, all to the same side, just below powers of two.
    check(4.03,
          numbers<float>({0x1.7eaf08p5f, 0x1.57de2ap5f, 0x1.792ad6p3f, 0x1.a557bcp3f, 0x1.ab002p5f},
                         {0x1.1f8bccp13f}),
          "fast, worst");
    check(0.51,
          numbers(sample_interval(0.0f, 300.0f, 500, 8),
                  sample_patterns(10001.0f, Limits<float>::max(), 500, 9)),
          "by the scalar routine");
}

TEST(Cexp, SingleError)
{
    const auto kernels = scalar_kernels("cexpf_scalar");
    const float largest = Limits<float>::max();
    const auto check = [&](const std::vector<std::complex<float>>& arguments, const char* path) {
        expect_errors_within(0.51, 0.51, worst_errors(kernels, arguments, mpc_exp), path);
    };
    check(numbers(sample_interval(0.0f, 90.0f, 1500, 2), sample_interval(0.0f, 90112.0f, 1500, 3)), "main");
    check(numbers(sample_patterns(0x1p-149f, 256.0f, 1000, 4), sample_patterns(0x1p-149f, largest, 1000, 5)),
          "any size");
    check(near_axes(150.0f, largest), "near the axes");
    check(numbers(sample_interval(80.0f, 260.0f, 500, 6), sample_interval(0.0f, 1e5f, 500, 7)),
          "ends of the range");
    // e^x sin y for tiny y far beyond the overflow of e^x.
    check(numbers(sample_interval(88.0f, 191.0f, 200, 8), sample_patterns(0x1p-149f, 0x1p-126f, 200, 9)),
          "large e^x, tiny y");
    for (const float x : {256.0f, 88.72283f, 103.97208f})
        check(numbers(neighbours(x, 2), {0.7f, 90112.0f, 0x1.5ffffep16f, 3.1415927f, 0x1p-149f}),
              "thresholds");
}

TEST(Cexp, DoubleError)
{
    const auto kernels = scalar_kernels("cexp_scalar");
    const double largest = Limits<double>::max();
    const auto check = [&](const std::vector<std::complex<double>>& arguments, const char* path) {
        expect_errors_within(0.51, 0.51, worst_errors(kernels, arguments, mpc_exp), path);
    };
    check(numbers(sample_interval(0.0, 705.0, 1000, 2), sample_interval(0.0, 1e6, 1000, 3)), "main");
    check(numbers(sample_patterns(0x1p-1074, 709.0, 700, 4), sample_patterns(0x1p-1074, largest, 700, 5)),
          "any size");
    check(near_axes(700.0, largest), "near the axes");
    check(numbers(sample_interval(700.0, 760.0, 300, 6), sample_interval(0.0, 10.0, 300, 7)),
          "ends of the range");
    check(numbers(sample_interval(709.0, 1454.0, 300, 8), sample_patterns(0x1p-1074, 0x1p-1000, 300, 9)),
          "large e^x, tiny y");
    check(numbers(neighbours(2048.0, 2), {0.7, 0x1p-1074, 0x1p-1022, 1e300}), "threshold");
}

constexpr Part nan = nan_part;
constexpr Part snan = signalling_part;

constexpr SpecialComplex specials[] = {
    {0.0, 0.0, 1, 0.0},
    {-0.0, 0.0, 1, 0.0},
    {0.0, -0.0, 1, -0.0},
    {infinity, 0.0, infinity, 0.0},
    {infinity, -0.0, infinity, -0.0},
    {-infinity, 0.0, 0.0, 0.0},
    {-infinity, -0.0, 0.0, -0.0},
    {nan, 0.0, nan, 0.0},
    {nan, -0.0, nan, -0.0},
    {snan, -0.0, nan, -0.0, flag_invalid},
    {infinity, infinity, infinity, nan},
    {infinity, -infinity, infinity, nan},
    {infinity, nan, infinity, nan},
    {infinity, snan, infinity, nan, flag_invalid},
    {-infinity, infinity, 0.0, 0.0},
    {-infinity, -infinity, 0.0, 0.0},
    {-infinity, nan, 0.0, 0.0},
    {-infinity, snan, 0.0, 0.0, flag_invalid},
    {nan, infinity, nan, nan},
    {nan, nan, nan, nan},
    {nan, snan, nan, nan, flag_invalid},
    {snan, nan, nan, nan, flag_invalid},
    {1, infinity, nan, nan, flag_invalid},
    {-0.0, -infinity, nan, nan, flag_invalid},
    {1, nan, nan, nan},
    {0.0, nan, nan, nan},
    {1, snan, nan, nan, flag_invalid},
    {nan, 1, nan, nan},
    {snan, 1, nan, nan, flag_invalid},
    {infinity, 1, infinity, infinity},
    {infinity, 2, -infinity, infinity},
    {infinity, -4, -infinity, infinity},
    {infinity, 0x1p-149, infinity, infinity},
    {infinity, -0x1p-70, infinity, -infinity},
    {infinity, 0x1.921fb6p0, -infinity, infinity},
    {infinity, 89000, infinity, -infinity},
    {infinity, -100000, -infinity, -infinity},
    {-infinity, 1, 0.0, 0.0},
    {-infinity, 2, -0.0, 0.0},
    {-infinity, -0x1p-70, 0.0, -0.0},
    {-infinity, -4, -0.0, 0.0},
    {-infinity, 0x1p100, 0.0, -0.0},
};
// Beyond the range: what the rounding mode makes of it. The signs are those of cos y and sin y.
constexpr SpecialComplex overflows[] = {
    {3000, 1, infinity, infinity, flag_overflow},
    {3000, -4, -infinity, infinity, flag_overflow},
    {3000, 0.0, infinity, 0.0, flag_overflow},
    {3000, 0x1p-149, infinity, infinity, flag_overflow},
    {1000, -0.0, infinity, -0.0, flag_overflow},
    {1000, 1, infinity, infinity, flag_overflow},
    {-3000, 1, 0.0, 0.0},
    {-3000, 2, -0.0, 0.0},
    {-3000, -4, -0.0, 0.0},
    {-3000, 0.0, 0.0, 0.0},
    {-1000, 0x1p-149, 0.0, 0.0},
    {-1000, 1, 0.0, 0.0},
    {1e30, -1, infinity, -infinity, flag_overflow},
    {-1e30, -1, 0.0, -0.0},
};
constexpr std::span<const Rounding> to_nearest{all_roundings, 1};

TEST(Cexp, SpecialArguments)
{
    for (const char* name : {"cexp_scalar", "internal_cexp", "cexpf_scalar"})
        for (const ScalarKernel& kernel : scalar_kernels(name)) {
            check_specials(kernel, specials);
            check_specials(kernel, overflows, to_nearest);
        }
    for (const Kernel& kernel : entry("cexpf2").kernels) {
        check_specials(kernel, specials, {0.7f, -1.3f});
        check_specials(kernel, overflows, {-3.1f, 2.0f}, to_nearest);
    }
}

// Results that underflow raise underflow, also where the arithmetic on the way had room for them; others do
// not.
TEST(Cexp, Underflow)
{
    const struct {
        float x;
        float y;
        const char* flags;
    } cases[] = {
        {-88, 1, "underflow"},    {-110, 1, "underflow"},   {-300, 2, "underflow"},
        {-1e10f, 2, "underflow"}, {-88, 0.0f, "underflow"}, {0, 0x1p-140f, "underflow"},
        {-80, 1, "none"},         {-87.3f, -0.0f, "none"},  {80, 0x1p-149f, "none"},
    };
    for (const auto& [x, y, flags] : cases)
        for (const ScalarKernel& kernel : scalar_kernels("cexpf_scalar")) {
            const ScalarResult result = call_scalar(kernel, complex_bits(x, y));
            EXPECT_EQ(flag_names(result.flags & (flag_underflow | loud_flags)), flags)
                << kernel.symbol << ' ' << x << ' ' << y;
        }
    for (const double x : {-710.0, -740.0, -800.0, -2000.0, -2048.0, -1e300}) {
        const ScalarResult result = call_scalar(scalar_kernel("cexp_scalar"), complex_bits(x, 1.0));
        EXPECT_EQ(flag_names(result.flags & (flag_underflow | loud_flags)), "underflow") << x;
    }
}

// The single precision routine works at 64 bits whatever the caller's precision control is.
TEST(Cexp, PrecisionControl)
{
    for (const ScalarKernel& kernel : scalar_kernels("cexpf_scalar"))
        for (const auto& z :
             numbers(sample_interval(0.0f, 80.0f, 300, 10), sample_patterns(1.0f, 0x1p127f, 300, 11))) {
            const ComplexBits bits = complex_bits(z.real(), z.imag());
            const ComplexBits expected = call_scalar(kernel, bits).complex;
            for (const unsigned precision : {53u, 24u})
                EXPECT_EQ(call_scalar(kernel, bits, {}, {Rounding::nearest, precision}).complex, expected)
                    << kernel.symbol << ' ' << z;
        }
}

TEST(Cexp, DirectedRounding)
{
    const auto single = joined(
        joined(numbers(sample_interval(0.0f, 80.0f, 300, 12), sample_interval(0.0f, 9000.0f, 300, 13)),
               numbers(sample_interval(0.0f, 80.0f, 300, 14), sample_patterns(0x1p-149f, 1.0f, 300, 15))),
        near_axes(80.0f, 90000.0f));
    const auto wide = joined(
        joined(numbers(sample_interval(0.0, 700.0, 300, 12), sample_interval(0.0, 9000.0, 300, 13)),
               numbers(sample_interval(0.0, 700.0, 300, 14), sample_patterns(0x1p-1074, 1.0, 300, 15))),
        near_axes(700.0, 1e300));
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero}) {
        const std::string mode = "rounding " + std::to_string(static_cast<unsigned>(rounding));
        expect_errors_within(1.01, 1.01,
                             worst_errors(scalar_kernels("cexpf_scalar"), single, mpc_exp, rounding), mode);
        expect_errors_within(1.01, 1.01, worst_errors(scalar_kernels("cexp_scalar"), wide, mpc_exp, rounding),
                             mode);
    }
}

} // namespace
} // namespace zelk::test
