// The complex logarithm.
#include "complex_oracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
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
// Not near one.
template <class T>
std::vector<std::complex<T>> any_size(std::size_t count, T smallest)
{
    auto list = all_quadrants<T>(sample_patterns(smallest, Limits<T>::max(), count, 3),
                                 sample_patterns(smallest, Limits<T>::max(), count, 4));
    std::erase_if(list, [](const std::complex<T>& z) { return std::fabs(std::abs(z) - 1) < T(0.02); });
    return list;
}
// Numbers as near to the unit circle as their format has them, all around it and close to the axes, and their
// neighbours: |z|^2 - 1 cancels to the last bit.
template <class T>
std::vector<std::complex<T>> unit_circle(std::size_t count)
{
    std::vector<T> small = sample_interval(T(0x1p-6), T(0.7071), count / 2, 5);
    for (const T x : sample_patterns(Limits<T>::denorm_min(), T(0x1p-6), count / 2, 6))
        small.push_back(x);
    std::vector<std::complex<T>> list;
    for (const T b : small) {
        const auto wide = static_cast<long double>(b);
        const auto a = static_cast<T>(std::sqrt((1.0L - wide) * (1.0L + wide)));
        for (const T near : {a, std::nextafter(a, T(0)), std::nextafter(a, T(2))})
            for (const auto& z : {std::complex<T>(near, b), std::complex<T>(-b, near)})
                list.push_back(z);
    }
    // 1 - 2^-j and the sine that belongs to it: the terms cancel down to 2^-2j, 2^-4j or to zero.
    for (int j = 1; j < Limits<T>::digits; j += 2) {
        const T a = T(1) - std::ldexp(T(1), -j);
        const T b = std::ldexp(T(1) - std::ldexp(T(1), -j - 2), (1 - j) / 2);
        for (const T near : neighbours(b, 2)) {
            list.emplace_back(a, near);
            list.emplace_back(-near, -a);
        }
    }
    return list;
}
// Around the circles where the near-one path begins.
template <class T>
std::vector<std::complex<T>> path_change(std::size_t count)
{
    std::vector<std::complex<T>> list;
    for (const T angle : sample_interval(T(-3.14), T(3.14), count, 7))
        for (const double s : {0.97, 1.03}) {
            const double r = std::sqrt(s);
            list.emplace_back(static_cast<T>(r * std::cos(angle)), static_cast<T>(r * std::sin(angle)));
        }
    return list;
}

struct Bounds {
    double re;
    double re_near_one;
    double im;
};

template <class T, class AnyKernel>
void expect_errors(const std::vector<AnyKernel>& kernels, const Bounds& bounds, std::size_t count, T smallest)
{
    const auto check = [&](const std::vector<std::complex<T>>& arguments, double re, const char* path) {
        expect_errors_within(re, bounds.im, worst_errors(kernels, arguments, mpc_log), path);
    };
    const double re_both = std::max(bounds.re, bounds.re_near_one);
    check(comparable<T>(count), re_both, "comparable parts");
    check(any_size<T>(count, smallest), bounds.re, "any size");
    check(unit_circle<T>(count), bounds.re_near_one, "unit circle");
    check(path_change<T>(count), re_both, "change of paths");
}

// The imaginary part is worst where the quotient is just above a power of two and its angle just below.
std::vector<std::complex<float>> below_powers_of_two(std::size_t count)
{
    std::vector<std::complex<float>> list;
    const auto xs = sample_interval(1.0f, 2.0f, count, 8);
    const auto shrinking = sample_interval(0.988, 1.0, count, 9);
    for (std::size_t i = 0; i < xs.size(); ++i) {
        const double quotient = std::array{0.5463, 0.2553, 0.12565, 0.06258}[i % 4];
        list.emplace_back(xs[i], static_cast<float>(xs[i] * quotient * shrinking[i]));
    }
    // The largest errors of the polynomial, with quotients that are rounded by half an ulp to the same side.
    list.emplace_back(0x1.1de9bep0f, 0x1.2a85e4p-1f);
    list.emplace_back(0x1.bf8f5cp0f, 0x1.d34c9cp-1f);
    list.emplace_back(0x1.afcc58p0f, 0x1.c2d7a2p-1f);
    return list;
}

TEST(Clog, VectorError)
{
    const auto& kernels = entry("clogf2").kernels;
    expect_errors<float>(kernels, {0.51, 0.842, 2.53}, 1500, Limits<float>::denorm_min());
    expect_errors_within(0.842, 2.53, worst_errors(kernels, below_powers_of_two(8000), mpc_log),
                         "angles below powers of two");
}

TEST(Clog, SingleError)
{
    expect_errors<float>(scalar_kernels("clogf_scalar"), {0.51, 0.51, 0.51}, 1000,
                         Limits<float>::denorm_min());
}

// The real part near one is as accurate as elsewhere, however small it is.
TEST(Clog, DoubleError)
{
    expect_errors<double>(scalar_kernels("clog_scalar"), {0.54, 0.51, 0.51}, 1500,
                          Limits<double>::denorm_min());
}

constexpr Part nan = nan_part;
constexpr Part snan = signalling_part;
constexpr double pi = 0x1.921fb54442d18p1;

// Rows without a rounded angle.
constexpr SpecialComplex specials[] = {
    {1, 0.0, 0.0, 0.0},
    {1, -0.0, 0.0, -0.0},
    {infinity, 1, infinity, 0.0},
    {infinity, -1, infinity, -0.0},
    {infinity, 0.0, infinity, 0.0},
    {infinity, -0.0, infinity, -0.0},
    {infinity, nan, infinity, nan},
    {-infinity, nan, infinity, nan},
    {nan, infinity, infinity, nan},
    {nan, -infinity, infinity, nan},
    {nan, 1, nan, nan},
    {nan, 0.0, nan, nan},
    {1, nan, nan, nan},
    {-0.0, nan, nan, nan},
    {nan, nan, nan, nan},
    {snan, 1, nan, nan, flag_invalid},
    {1, snan, nan, nan, flag_invalid},
    {snan, nan, nan, nan, flag_invalid},
    {nan, snan, nan, nan, flag_invalid},
    {snan, infinity, infinity, nan, flag_invalid},
    {infinity, snan, infinity, nan, flag_invalid},
};
constexpr SpecialComplex angles[] = {
    {-1, 0.0, 0.0, pi},
    {-1, -0.0, 0.0, -pi},
    {0.0, 1, 0.0, pi / 2},
    {-0.0, 1, 0.0, pi / 2},
    {0.0, -1, 0.0, -pi / 2},
    {-infinity, 1, infinity, pi},
    {-infinity, -1, infinity, -pi},
    {-infinity, -0.0, infinity, -pi},
    {1, infinity, infinity, pi / 2},
    {-0.0, -infinity, infinity, -pi / 2},
    {infinity, infinity, infinity, pi / 4},
    {infinity, -infinity, infinity, -pi / 4},
    {-infinity, infinity, infinity, 3 * pi / 4},
    {-infinity, -infinity, infinity, -3 * pi / 4},
};

std::vector<SpecialComplex> origin(unsigned flags)
{
    return {{0.0, 0.0, -infinity, 0.0, flags},
            {0.0, -0.0, -infinity, -0.0, flags},
            {-0.0, 0.0, -infinity, pi, flags},
            {-0.0, -0.0, -infinity, -pi, flags}};
}
constexpr std::span<const Rounding> to_nearest{all_roundings, 1};

TEST(Clog, SpecialArguments)
{
    for (const ScalarKernel& kernel : scalar_kernels("clogf_scalar")) {
        check_specials(kernel, specials);
        check_specials(kernel, angles, to_nearest);
        check_specials(kernel, origin(0), to_nearest);
    }
    check_specials(scalar_kernel("clog_scalar"), specials);
    check_specials(scalar_kernel("clog_scalar"), angles, to_nearest);
    check_specials(scalar_kernel("clog_scalar"), origin(flag_divide_by_zero), to_nearest);
    for (const Kernel& kernel : entry("clogf2").kernels) {
        check_specials(kernel, specials, {0.7f, -1.3f});
        check_specials(kernel, angles, {-0.6f, 0.8f}, to_nearest);
        check_specials(kernel, origin(0), {-0.6f, 0.8f}, to_nearest);
    }
}

// Nothing is raised beside the arithmetic's own: not by parts that are far apart, nor by the largest.
TEST(Clog, QuietRange)
{
    const float parts[] = {0x1p-149f, 0x1p-126f, 0x1p-60f, 1.0f, 0x1p60f, Limits<float>::max()};
    for (const float x : parts)
        for (const float y : parts) {
            for (const Kernel& kernel : entry("clogf2").kernels) {
                const Result result = call(kernel.address, floats(x, -y, -x, y));
                EXPECT_EQ(flag_names(result.flags & loud_flags), "none")
                    << kernel.symbol << ' ' << x << ' ' << y;
            }
            for (const ScalarKernel& kernel : scalar_kernels("clogf_scalar"))
                EXPECT_EQ(flag_names(call_scalar(kernel, complex_bits(x, y)).flags & loud_flags), "none")
                    << kernel.symbol << ' ' << x << ' ' << y;
        }
}

} // namespace
} // namespace zelk::test
