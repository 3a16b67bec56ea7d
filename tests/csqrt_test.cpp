// The complex square root.
#include "complex_oracle.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

namespace zelk::test {
namespace {

template <class T>
using Limits = std::numeric_limits<T>;

template <class T>
std::vector<std::complex<T>> comparable(std::size_t count)
{
    return all_quadrants<T>(sample_interval(T(0x1p-20), T(4), count, 1),
                            sample_interval(T(0x1p-20), T(4), count, 2));
}
template <class T>
std::vector<std::complex<T>> any_size(std::size_t count)
{
    return all_quadrants<T>(sample_patterns(Limits<T>::denorm_min(), Limits<T>::max(), count, 3),
                            sample_patterns(Limits<T>::denorm_min(), Limits<T>::max(), count, 4));
}
// Both orders of a part next to a threshold of the range test beside parts of all sizes.
std::vector<std::complex<float>> thresholds()
{
    std::vector<std::complex<float>> list;
    const float others[] = {0x1p-149f, 0x1p-126f, 0x1.8p-60f, 1.5f, 0x1p127f, Limits<float>::max()};
    for (const float bound : {0x1p-126f, Limits<float>::max()})
        for (const float x : neighbours(bound, 3))
            for (const float other : others)
                for (const float sign : {1.0f, -1.0f}) {
                    if (!std::isfinite(x)) continue;
                    list.emplace_back(sign * x, other);
                    list.emplace_back(sign * other, -x);
                }
    return list;
}

TEST(Csqrt, VectorError)
{
    // Binades of the exponent halved in integers.
    const auto binades = all_quadrants<float>(sample_patterns(0x1.8p-126f, Limits<float>::max(), 2500, 5),
                                              sample_patterns(0x1.8p-126f, Limits<float>::max(), 2500, 6));
    const auto& kernels = entry("csqrtf2").kernels;
    expect_errors_within(0.53, 0.53, worst_errors(kernels, comparable<float>(2500), mpc_sqrt),
                         "comparable parts");
    expect_errors_within(0.53, 0.53, worst_errors(kernels, binades, mpc_sqrt), "any size");
    expect_errors_within(0.53, 0.53, worst_errors(kernels, thresholds(), mpc_sqrt), "thresholds");
}

TEST(Csqrt, ScalarError)
{
    const auto single = scalar_kernels("csqrtf_scalar");
    expect_errors_within(0.51, 0.51, worst_errors(single, comparable<float>(1500), mpc_sqrt),
                         "comparable parts");
    expect_errors_within(0.51, 0.51, worst_errors(single, any_size<float>(1500), mpc_sqrt), "any size");
    expect_errors_within(0.51, 0.51, worst_errors(single, thresholds(), mpc_sqrt), "thresholds");
    const auto wide = scalar_kernels("csqrt_scalar");
    const auto subnormal = all_quadrants<double>(sample_patterns(0x1p-1074, 0x1p-1020, 500, 7),
                                                 sample_patterns(0x1p-1074, 0x1p-1020, 500, 8));
    expect_errors_within(0.51, 0.51, worst_errors(wide, comparable<double>(2500), mpc_sqrt),
                         "comparable parts");
    expect_errors_within(0.51, 0.51, worst_errors(wide, any_size<double>(2500), mpc_sqrt), "any size");
    expect_errors_within(0.51, 0.51, worst_errors(wide, subnormal, mpc_sqrt), "subnormal parts");
}

TEST(Csqrt, DirectedRounding)
{
    const auto single = comparable<float>(500);
    const auto wide = comparable<double>(500);
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero}) {
        const std::string mode = "rounding " + std::to_string(static_cast<unsigned>(rounding));
        expect_errors_within(1.03, 1.03, worst_errors(entry("csqrtf2").kernels, single, mpc_sqrt, rounding),
                             mode);
        expect_errors_within(1.01, 1.01,
                             worst_errors(scalar_kernels("csqrtf_scalar"), single, mpc_sqrt, rounding), mode);
        expect_errors_within(1.01, 1.01,
                             worst_errors(scalar_kernels("csqrt_scalar"), wide, mpc_sqrt, rounding), mode);
    }
}

constexpr Part nan = nan_part;
constexpr Part snan = signalling_part;

// Every row of infinite and NaN parts, and the axes where the root is exact.
constexpr SpecialComplex specials[] = {
    {nan, -infinity, infinity, -infinity},
    {nan, infinity, infinity, infinity},
    {snan, infinity, infinity, infinity}, // the NaN is not looked at
    {-infinity, nan, nan, infinity},
    {infinity, nan, infinity, nan},
    {-infinity, snan, nan, infinity, flag_invalid},
    {infinity, snan, infinity, nan, flag_invalid},
    {nan, 1, nan, nan},
    {nan, 0.0, nan, nan},
    {nan, nan, nan, nan},
    {0.0, nan, nan, nan},
    {-1, nan, nan, nan},
    {snan, 1, nan, nan, flag_invalid},
    {1, snan, nan, nan, flag_invalid},
    {snan, nan, nan, nan, flag_invalid},
    {nan, snan, nan, nan, flag_invalid},
    {1, infinity, infinity, infinity},
    {-0.0, -infinity, infinity, -infinity},
    {infinity, infinity, infinity, infinity},
    {-infinity, -infinity, infinity, -infinity},
    {-infinity, 1, 0.0, infinity},
    {-infinity, 0.0, 0.0, infinity},
    {-infinity, -0.0, 0.0, -infinity},
    {-infinity, -1, 0.0, -infinity},
    {infinity, 1, infinity, 0.0},
    {infinity, 0.0, infinity, 0.0},
    {infinity, -0.0, infinity, -0.0},
    {infinity, -1, infinity, -0.0},
    {0.0, 0.0, 0.0, 0.0},
    {-0.0, 0.0, 0.0, 0.0},
    {0.0, -0.0, 0.0, -0.0},
    {-0.0, -0.0, 0.0, -0.0},
    {4, 0.0, 2, 0.0},
    {4, -0.0, 2, -0.0},
    {-4, 0.0, 0.0, 2},
    {-4, -0.0, 0.0, -2},
    {0.0, 2, 1, 1},
    {-0.0, 2, 1, 1},
    {0.0, -2, 1, -1},
    {0.0, 0x1p-125, 0x1p-63, 0x1p-63},
};
// Exact in every rounding mode by the formulas that square and divide; the reciprocal of tiers other than A
// is rounded.
constexpr SpecialComplex pythagorean[] = {
    {3, 4, 2, 1},    {3, -4, 2, -1}, {-3, 4, 1, 2},
    {-3, -4, 1, -2}, {-5, 12, 2, 3}, {0x1.8p101, 0x1p102, 0x1p51, 0x1p50},
};

TEST(Csqrt, SpecialArguments)
{
    for (const ScalarKernel& kernel : scalar_kernels("csqrtf_scalar")) {
        check_specials(kernel, specials);
        check_specials(kernel, pythagorean, {all_roundings, 1});
    }
    check_specials(scalar_kernel("csqrt_scalar"), specials);
    check_specials(scalar_kernel("csqrt_scalar"), pythagorean);
    for (const Kernel& kernel : entry("csqrtf2").kernels) {
        check_specials(kernel, specials, {0.7f, -1.3f});
        check_specials(kernel, pythagorean, {-3.1f, 2.0f}, {all_roundings, 1});
    }
}

// A denormal part of the result raises underflow, be it exact, and no other does.
TEST(Csqrt, DenormalResults)
{
    const struct {
        double x;
        double y;
        const char* flags;
    } cases[] = {{1, 0x1p-1073, "underflow"},
                 {-1, 0x1p-1073, "underflow"},
                 {0x1p1000, -0x1p-560, "underflow"},
                 {1, 0x1p-1021, "none"},
                 {0x1p-1074, 0x1p-1074, "none"}},
      float_cases[] = {{1, 0x1p-148, "underflow"},
                       {-1, 0x1p-148, "underflow"},
                       {0x1p100, -0x1p-97, "underflow"},
                       {1, 0x1p-125, "none"},
                       {0x1p-149, 0x1p-149, "none"}};
    for (const auto& [x, y, flags] : cases) {
        const ScalarResult result = call_scalar(scalar_kernel("csqrt_scalar"), complex_bits(x, y));
        EXPECT_EQ(flag_names(result.flags & (flag_underflow | loud_flags)), flags) << x << ' ' << y;
    }
    for (const auto& [x, y, flags] : float_cases)
        for (const ScalarKernel& kernel : scalar_kernels("csqrtf_scalar")) {
            const ScalarResult result =
                call_scalar(kernel, complex_bits(static_cast<float>(x), static_cast<float>(y)));
            EXPECT_EQ(flag_names(result.flags & (flag_underflow | loud_flags)), flags)
                << kernel.symbol << ' ' << x << ' ' << y;
        }
}

// Half of the smallest number is not lost.
TEST(Csqrt, SmallestImaginary)
{
    const double s = 0x1.6a09e667f3bcdp-538; // sqrt(2^-1075)
    const ScalarResult result = call_scalar(scalar_kernel("csqrt_scalar"), complex_bits(-0.0, -0x1p-1074));
    EXPECT_EQ(result.complex, complex_bits(s, -s));
}

} // namespace
} // namespace zelk::test
