// The complex arc cosine.
#include "complex_oracle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelk::test {
namespace {

template <class T>
using Limits = std::numeric_limits<T>;

// arccos z by Kahan's formulas, z off the real axis: with s = sqrt(1 + z) and t = sqrt(1 - z),
// 2 arctan(Re t/Re s) - i arsinh(Im(s conj t)), where nothing cancels. MPC's own function takes thousands of
// bits where the parts are far apart.
int acos_by_roots(mpc_ptr result, mpc_srcptr z, mpc_rnd_t)
{
    mpc_t s;
    mpc_t t;
    mpc_init2(s, 250);
    mpc_init2(t, 250);
    Exact product;
    mpc_add_ui(s, z, 1, MPC_RNDNN);
    mpc_sqrt(s, s, MPC_RNDNN);
    mpc_ui_sub(t, 1, z, MPC_RNDNN);
    mpc_sqrt(t, t, MPC_RNDNN);
    mpfr_atan2(mpc_realref(result), mpc_realref(t), mpc_realref(s), MPFR_RNDN);
    mpfr_mul_2ui(mpc_realref(result), mpc_realref(result), 1, MPFR_RNDN);
    mpfr_mul(product.value, mpc_realref(s), mpc_imagref(t), MPFR_RNDN);
    mpfr_mul(mpc_imagref(result), mpc_imagref(s), mpc_realref(t), MPFR_RNDN);
    mpfr_sub(mpc_imagref(result), product.value, mpc_imagref(result), MPFR_RNDN);
    mpfr_asinh(mpc_imagref(result), mpc_imagref(result), MPFR_RNDN);
    mpc_clear(s);
    mpc_clear(t);
    return 0;
}

template <class T>
std::vector<std::complex<T>> comparable(std::size_t count)
{
    return all_quadrants<T>(sample_interval(T(0x1p-10), T(3), count, 1),
                            sample_interval(T(0x1p-10), T(3), count, 2));
}
template <class T>
std::vector<std::complex<T>> any_size(std::size_t count)
{
    return all_quadrants<T>(sample_patterns(Limits<T>::denorm_min(), Limits<T>::max(), count, 3),
                            sample_patterns(Limits<T>::denorm_min(), Limits<T>::max(), count, 4));
}
// Both parts in 2^-100 to 2^100, and next to these bounds, beyond which cacos_scalar takes another path.
std::vector<std::complex<double>> moderate_size(std::size_t count)
{
    auto list = all_quadrants<double>(sample_patterns(0x1p-100, 0x1p100, count, 11),
                                      sample_patterns(0x1p-100, 0x1p100, count, 12));
    for (const auto& z : all_quadrants<double>(sample_patterns(0x1p-30, 0x1p30, count, 13),
                                               sample_patterns(0x1p-30, 0x1p30, count, 14)))
        list.push_back(z);
    const std::vector<double> bounds = {0x1p-100, 0x1.fffffffffffffp-101, 0x1p100, 0x1.fffffffffffffp99, 1};
    for (const double bound : bounds)
        for (const auto& z : all_quadrants<double>(bounds, std::vector<double>(bounds.size(), bound)))
            list.push_back(z);
    return list;
}
// 1 + d and small y, both over many binades and on both sides of 1: the branch point.
template <class T>
std::vector<std::complex<T>> near_one(std::size_t count)
{
    std::vector<T> xs;
    for (const T d : sample_patterns(Limits<T>::epsilon(), T(0.25), count, 5)) {
        xs.push_back(T(1) + d);
        xs.push_back(T(1) - d);
        xs.push_back(T(1));
    }
    return all_quadrants<T>(xs, sample_patterns(Limits<T>::denorm_min(), T(0.25), 3 * count, 6));
}
// Close to the real axis on and off the cut, and to the imaginary one.
template <class T>
std::vector<std::complex<T>> near_axes(std::size_t count)
{
    const auto tiny = sample_patterns(Limits<T>::denorm_min(), T(0x1p-10), count, 7);
    auto list = all_quadrants<T>(sample_interval(T(0.01), T(4), count, 8), tiny);
    for (const auto& z : all_quadrants<T>(tiny, sample_interval(T(0.01), T(4), count, 9)))
        list.push_back(z);
    return list;
}
// Around the ellipse A = 1.5 and the hyperbola B = 0.6417, where the formulas change.
template <class T>
std::vector<std::complex<T>> crossovers(std::size_t count)
{
    std::vector<T> re;
    std::vector<T> im;
    const auto add = [&](double A, double B) {
        re.push_back(static_cast<T>(A * B));
        im.push_back(static_cast<T>(std::sqrt((A * A - 1) * (1 - B * B))));
    };
    for (const double unit : sample_interval(0.001, 0.999, count, 10)) {
        add(1.5, unit);
        add(1 / unit, 0.6417);
    }
    return all_quadrants<T>(re, im);
}

template <class T, class AnyKernel>
void expect_errors(const std::vector<AnyKernel>& kernels, std::size_t count)
{
    const auto check = [&](const std::vector<std::complex<T>>& arguments, const char* path) {
        expect_errors_within(0.51, 0.51, worst_errors(kernels, arguments, acos_by_roots), path);
    };
    check(comparable<T>(count), "comparable parts");
    check(any_size<T>(count), "any size");
    check(near_one<T>(count), "near one");
    check(near_axes<T>(count), "near the axes");
    check(crossovers<T>(count), "crossovers");
}

// The oracle against MPC's function, where that is quick.
TEST(Cacos, Oracle)
{
    auto arguments = comparable<double>(100);
    for (const auto& z : near_one<float>(20))
        arguments.emplace_back(z.real(), z.imag());
    mpc_t z;
    mpc_t by_roots;
    mpc_t by_mpc;
    for (const mpc_ptr number : {z, by_roots, by_mpc})
        mpc_init2(number, 150);
    for (const auto& argument : arguments) {
        mpc_set_d_d(z, argument.real(), argument.imag(), MPC_RNDNN);
        acos_by_roots(by_roots, z, MPC_RNDNN);
        mpc_acos(by_mpc, z, MPC_RNDNN);
        EXPECT_TRUE(mpfr_eq(mpc_realref(by_roots), mpc_realref(by_mpc), 140)) << argument;
        EXPECT_TRUE(mpfr_eq(mpc_imagref(by_roots), mpc_imagref(by_mpc), 140)) << argument;
    }
    for (const mpc_ptr number : {z, by_roots, by_mpc})
        mpc_clear(number);
}

TEST(Cacos, SingleError)
{
    expect_errors<float>(scalar_kernels("cacosf_scalar"), 1000);
    expect_errors<float>(entry("cacosf2").kernels, 200);
}

TEST(Cacos, DoubleError)
{
    const auto kernels = scalar_kernels("cacos_scalar");
    expect_errors<double>(kernels, 1000);
    expect_errors_within(0.51, 0.51, worst_errors(kernels, moderate_size(1000), acos_by_roots),
                         "moderate size");
}

constexpr Part nan = nan_part;
constexpr Part snan = signalling_part;
constexpr double pi = 0x1.921fb54442d18p1;

// Stored constants, the same in every rounding mode.
constexpr SpecialComplex specials[] = {
    {0.0, 0.0, pi / 2, -0.0},
    {-0.0, 0.0, pi / 2, -0.0},
    {0.0, -0.0, pi / 2, 0.0},
    {-0.0, -0.0, pi / 2, 0.0},
    {1, 0.0, 0.0, -0.0},
    {1, -0.0, 0.0, 0.0},
    {-1, 0.0, pi, -0.0},
    {-1, -0.0, pi, 0.0},
    {0.0, infinity, pi / 2, -infinity},
    {-0.0, -infinity, pi / 2, infinity},
    {0.0, nan, pi / 2, nan},
    {-0.0, nan, pi / 2, nan},
    {0.0, snan, pi / 2, nan, flag_invalid},
    {nan, 1, nan, nan},
    {nan, 0.0, nan, nan},
    {snan, -1, nan, nan, flag_invalid},
    {1, nan, nan, nan},
    {-2, nan, nan, nan},
    {1, snan, nan, nan, flag_invalid},
    {nan, nan, nan, nan},
    {snan, nan, nan, nan, flag_invalid},
    {nan, snan, nan, nan, flag_invalid},
    {nan, infinity, nan, -infinity},
    {nan, -infinity, nan, infinity},
    {snan, infinity, nan, -infinity, flag_invalid},
    {1, infinity, pi / 2, -infinity},
    {-3, -infinity, pi / 2, infinity},
    {infinity, 1, 0.0, -infinity},
    {infinity, -1, 0.0, infinity},
    {infinity, 0.0, 0.0, -infinity},
    {infinity, -0.0, 0.0, infinity},
    {-infinity, 1, pi, -infinity},
    {-infinity, -0.0, pi, infinity},
    {infinity, nan, nan, infinity},
    {-infinity, nan, nan, infinity},
    {infinity, snan, nan, infinity, flag_invalid},
    {infinity, infinity, pi / 4, -infinity},
    {infinity, -infinity, pi / 4, infinity},
    {-infinity, infinity, 3 * pi / 4, -infinity},
    {-infinity, -infinity, 3 * pi / 4, infinity},
};

TEST(Cacos, SpecialArguments)
{
    for (const char* name : {"cacos_scalar", "cacosf_scalar"})
        check_specials(scalar_kernel(name), specials);
    for (const Kernel& kernel : entry("cacosf2").kernels)
        check_specials(kernel, specials, {0.7f, -1.3f});
}

// On the axes the real functions: the sign of the zero part tells the side of the cut.
TEST(Cacos, Axes)
{
    const struct {
        double x;
        double y;
        double re;
        double im;
    } cases[] = {
        {2, 0.0, 0.0, -0x1.5124271980435p0},      {2, -0.0, 0.0, 0x1.5124271980435p0},
        {-2, 0.0, pi, -0x1.5124271980435p0},      {-2, -0.0, pi, 0x1.5124271980435p0},
        {0.5, 0.0, 0x1.0c152382d7366p0, -0.0},    {0.5, -0.0, 0x1.0c152382d7366p0, 0.0},
        {-0.5, 0.0, 0x1.0c152382d7366p1, -0.0},   {0.0, 1, pi / 2, -0x1.c34366179d427p-1},
        {-0.0, -1, pi / 2, 0x1.c34366179d427p-1}, {0.0, 0x1p-1074, pi / 2, -0x1p-1074},
        {0x1p-1074, 0.0, pi / 2, -0.0},
    };
    const ScalarKernel wide = scalar_kernel("cacos_scalar");
    const ScalarKernel single = scalar_kernel("cacosf_scalar");
    for (const auto& [x, y, re, im] : cases) {
        EXPECT_EQ(call_scalar(wide, complex_bits(x, y)).complex, complex_bits(re, im)) << x << ' ' << y;
        if (std::fabs(x) + std::fabs(y) < 0x1p-149) continue;
        const auto narrow = [](double value) { return static_cast<float>(value); };
        EXPECT_EQ(call_scalar(single, complex_bits(narrow(x), narrow(y))).complex,
                  complex_bits(narrow(re), narrow(im)))
            << x << ' ' << y;
    }
}

// Nothing is raised beside the arithmetic's own, whatever the sizes of the parts.
TEST(Cacos, QuietRange)
{
    const double parts[] = {0x1p-1074, 0x1p-1022,           0x1p-500, 0x1p-60, 0x1.fffffffffffffp-1,
                            1,         0x1.0000000000001p0, 0x1p60,   0x1p700, Limits<double>::max()};
    for (const double x : parts)
        for (const double y : parts) {
            const ScalarResult result = call_scalar(scalar_kernel("cacos_scalar"), complex_bits(-x, y));
            EXPECT_EQ(flag_names(result.flags & loud_flags), "none") << x << ' ' << y;
            const auto x_float = static_cast<float>(std::min(x, 0x1p127));
            const auto y_float = static_cast<float>(std::min(y, 0x1p127));
            const ScalarResult single =
                call_scalar(scalar_kernel("cacosf_scalar"), complex_bits(x_float, -y_float));
            EXPECT_EQ(flag_names(single.flags & loud_flags), "none") << x_float << ' ' << y_float;
        }
}

TEST(Cacos, DirectedRounding)
{
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero}) {
        const std::string mode = "rounding " + std::to_string(static_cast<unsigned>(rounding));
        expect_errors_within(
            1.01, 1.01,
            worst_errors(scalar_kernels("cacos_scalar"), comparable<double>(200), acos_by_roots, rounding),
            mode);
        expect_errors_within(
            1.01, 1.01,
            worst_errors(scalar_kernels("cacosf_scalar"), comparable<float>(200), acos_by_roots, rounding),
            mode);
    }
}

} // namespace
} // namespace zelk::test
