// Error functions, and the two entries that are sums.
#include "extremes.h"
#include "oracle.h"
#include "special_lanes.h"
#include "symmetry.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

namespace zelk::test {
namespace {

const Unary erf = mpfr_unary(mpfr_erf);
const Unary erfc = mpfr_unary(mpfr_erfc);
const Rounding nearest[] = {Rounding::nearest};

// From here on nothing is left of erfc x but flags: the end of the kernels' ranges.
constexpr auto erfcf4_end = std::bit_cast<float>(0x4120DDFC);
constexpr auto erfc2_end = std::bit_cast<double>(0x403B39DD00000000);
// erfc x is half the smallest subnormal between this number and the one before.
constexpr auto erfc2_first_zero = std::bit_cast<double>(0x403B39DC41E48BFD);

// Every end of a row of the tables and its neighbours: `parts` rows per binade.
template <class T>
std::vector<T> row_ends(T from, T to, int parts)
{
    std::vector<T> ends;
    for (T binade = from; binade < to; binade *= 2)
        for (int i = 0; i < parts; ++i) {
            const T end = binade * (1 + T(i) / T(parts));
            if (end <= to) ends = joined(std::move(ends), neighbours(end, 1));
        }
    return ends;
}

template <class T>
struct Path {
    const char* name;
    std::vector<T> arguments;
    double bound;
};

template <class T>
void expect_errors(const char* name, const Unary& exact, const std::vector<Path<T>>& paths)
{
    for (const auto& kernel : entry(name).kernels)
        for (const auto& path : paths)
            expect_error_within(path.bound, worst_error(kernel.address, path.arguments, exact), kernel.symbol,
                                path.name);
}

TEST(Erf, ErrorByPath)
{
    // A cubic per sixteenth of a binade is short of the precision in the rows from 2 to 2.75.
    expect_errors<float>(
        "erff4", erf,
        {{"subnormal", with_negatives(sample_patterns(smallest<float>, 0x1p-126f, 1000)), 0.57},
         {"below 1/32", with_negatives(sample_patterns(0x1p-126f, 0x1p-5f, 2000)), 0.64},
         {"to 2", with_negatives(sample_interval(0x1p-5f, 1.9999f, 2500)), 0.64},
         {"to 2.75", with_negatives(sample_interval(2.0f, 2.75f, 2500)), 1.49},
         {"to 4", sample_interval(2.75f, 4.0f, 3000), 0.64},
         {"row ends", row_ends(0x1p-5f, 4.0f, 16), 1.49},
         {"saturated", sample_patterns(4.0f, largest<float>, 500), 0.5}});
    expect_errors<double>(
        "erf2", erf,
        {{"subnormal", with_negatives(sample_patterns(smallest<double>, 0x1p-1022, 1000)), 0.57},
         {"below 1/8", with_negatives(sample_patterns(0x1p-1022, 0.125, 3000)), 0.82},
         {"to 1", with_negatives(sample_interval(0.125, 1.0, 3000)), 0.69},
         {"to 6", with_negatives(sample_interval(1.0, 6.0, 2500)), 0.69},
         {"row ends", row_ends(0.125, 6.0, 4), 0.69},
         {"saturated", sample_patterns(6.0, largest<double>, 500), 0.5}});
}

TEST(Erfc, ErrorByPath)
{
    // A cubic per sixteenth of a binade is short of the precision below 1/16 and from 2 on.
    expect_errors<float>("erfcf4", erfc,
                         {{"below 1/16", with_negatives(sample_patterns(smallest<float>, 0x1p-4f, 500)), 1.6},
                          {"to 2", sample_interval(0x1p-4f, 1.9999f, 500), 0.66},
                          {"to 4", sample_interval(2.0f, 3.9999f, 500), 1.15},
                          {"to 8", sample_interval(4.0f, 8.0f, 500), 1.8},
                          {"to 9.2", sample_interval(8.0f, 9.2f, 500), 2.2},
                          {"subnormal results",
                           joined(sample_interval(9.2f, erfcf4_end, 400), neighbours(erfcf4_end, 20)), 1.2},
                          {"negative", sample_interval(-4.0f, -0x1p-4f, 400), 0.52},
                          {"row ends", row_ends(0x1p-4f, 10.0f, 16), 2.2},
                          {"near 2", sample_patterns(-4.0f, -largest<float>, 200), 0.52}});
    expect_errors<double>(
        "erfc2", erfc,
        {{"below 1/4", with_negatives(sample_patterns(smallest<double>, 0.25, 400)), 0.8},
         {"to 1", sample_interval(0.25, 1.0, 500), 0.6},
         {"to 8", sample_interval(1.0, 7.9999, 500), 0.7},
         {"to 26.5", sample_interval(8.0, 26.5, 500), 1.3},
         {"subnormal results", joined(sample_interval(26.5, 27.2265, 400), neighbours(erfc2_first_zero, 20)),
          0.8},
         {"negative", sample_interval(-6.0, -0.25, 400), 0.8},
         {"row ends", row_ends(0.25, 27.0, 4), 1.3},
         {"near 2", sample_patterns(-6.0, -largest<double>, 200), 0.52}});
}

// Every lane on its own, through whichever of the two paths the lane beside it asks for.
TEST(Erf, SpecialLanes)
{
    const Special<float> erf_f[] = {
        {"+0", 0.0f, 0.0f},
        {"-0", -0.0f, -0.0f},
        {"first saturated", 4.0f, 1.0f},
        {"-4", -4.0f, -1.0f},
        {"largest", largest<float>, 1.0f},
        {"+inf", infinity<float>, 1.0f},
        {"-inf", -infinity<float>, -1.0f},
        {"NaN", quiet_nan<float>, quiet_nan<float>},
        {"signalling NaN", signalling_nan_f, quiet_nan<float>, flag_invalid},
    };
    const Special<double> erf_d[] = {
        {"+0", 0.0, 0.0},
        {"-0", -0.0, -0.0},
        {"6", 6.0, 1.0},
        {"-largest", -largest<double>, -1.0},
        {"+inf", infinity<double>, 1.0},
        {"-inf", -infinity<double>, -1.0},
        {"NaN", quiet_nan<double>, quiet_nan<double>},
        {"signalling NaN", signalling_nan_d, quiet_nan<double>, flag_invalid},
    };
    const Special<float> erfc_f[] = {
        {"+0", 0.0f, 1.0f},
        {"-0", -0.0f, 1.0f},
        {"+inf", infinity<float>, 0.0f},
        {"-inf", -infinity<float>, 2.0f},
        {"NaN", quiet_nan<float>, quiet_nan<float>},
        {"signalling NaN", signalling_nan_f, quiet_nan<float>, flag_invalid},
    };
    const Special<double> erfc_d[] = {
        {"+0", 0.0, 1.0},
        {"-0", -0.0, 1.0},
        {"+inf", infinity<double>, 0.0},
        {"-inf", -infinity<double>, 2.0},
        {"NaN", quiet_nan<double>, quiet_nan<double>},
        {"signalling NaN", signalling_nan_d, quiet_nan<double>, flag_invalid},
    };
    for (const auto& kernel : entry("erff4").kernels)
        check_specials(kernel, erf_f, -0.7f, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("erf2").kernels)
        check_specials(kernel, erf_d, -0.7, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("erfcf4").kernels)
        check_specials(kernel, erfc_f, -0.7f, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("erfc2").kernels)
        check_specials(kernel, erfc_d, -0.7, OrdinaryLanes::keep_bits);
}

// Beyond the range of erfc the flags are all that tells the result from an exact one.
TEST(Erfc, FlagsAtTheEnds)
{
    const unsigned rounded_off = flag_underflow | flag_inexact;
    const struct {
        float x;
        float at_nearest;
        float upward;
        unsigned flags;
    } singles[] = {
        {erfcf4_end, 0.0f, smallest<float>, rounded_off},
        {10.06f, 0.0f, smallest<float>, rounded_off},
        {largest<float>, 0.0f, smallest<float>, rounded_off},
        {-erfcf4_end, 2.0f, std::nextafter(2.0f, 3.0f), flag_inexact},
        {-30.0f, 2.0f, std::nextafter(2.0f, 3.0f), flag_inexact},
        {infinity<float>, 0.0f, 0.0f, 0},
        {-infinity<float>, 2.0f, 2.0f, 0},
        {0.0f, 1.0f, 1.0f, 0},
        {-0.0f, 1.0f, 1.0f, 0},
    };
    for (const auto& kernel : entry("erfcf4").kernels)
        for (const auto& row : singles) {
            const Vec128 x = floats(row.x, row.x, row.x, row.x);
            const Result result = call(kernel.address, x);
            EXPECT_EQ(hex(result.first),
                      hex(floats(row.at_nearest, row.at_nearest, row.at_nearest, row.at_nearest)))
                << kernel.symbol << ' ' << row.x;
            EXPECT_EQ(flag_names(result.flags), flag_names(row.flags)) << kernel.symbol << ' ' << row.x;
            // 2 less something, where the others add something to 2.
            const float upward = kernel.lane_loop && row.x < 0 ? row.at_nearest : row.upward;
            EXPECT_EQ(call(kernel.address, x, {}, {}, nullptr, Rounding::up).first.f[3], upward)
                << kernel.symbol << ' ' << row.x;
        }
    const struct {
        double x;
        double at_nearest;
        double upward;
        unsigned flags;
    } doubles_[] = {
        {erfc2_end, 0.0, smallest<double>, rounded_off},
        {27.3, 0.0, smallest<double>, rounded_off},
        {largest<double>, 0.0, smallest<double>, rounded_off},
        {-erfc2_end, 2.0, std::nextafter(2.0, 3.0), flag_inexact},
        {-30.0, 2.0, std::nextafter(2.0, 3.0), flag_inexact},
        {infinity<double>, 0.0, 0.0, 0},
        {-infinity<double>, 2.0, 2.0, 0},
        {0.0, 1.0, 1.0, 0},
        {-0.0, 1.0, 1.0, 0},
    };
    for (const auto& kernel : entry("erfc2").kernels)
        for (const auto& row : doubles_) {
            const Result result = call(kernel.address, doubles(row.x, row.x));
            EXPECT_EQ(hex(result.first), hex(doubles(row.at_nearest, row.at_nearest)))
                << kernel.symbol << ' ' << row.x;
            EXPECT_EQ(flag_names(result.flags), flag_names(row.flags)) << kernel.symbol << ' ' << row.x;
            EXPECT_EQ(call(kernel.address, doubles(row.x, row.x), {}, {}, nullptr, Rounding::up).first.d[1],
                      row.upward)
                << kernel.symbol << ' ' << row.x;
        }
}

// All tiers give the same bits in every rounding mode, beside lanes in and out of the ranges; erf is odd.
TEST(Erf, SymmetryAndTiers)
{
    auto singles =
        joined(sample_patterns(smallest<float>, largest<float>, 2000), sample_interval(0.0f, 11.0f, 6000));
    singles = joined(singles, row_ends(0x1p-5f, 10.5f, 16));
    singles = joined(singles, {infinity<float>, 0.0f, 10.05f, -10.06f, -infinity<float>, 1.0f});
    auto doubles_all =
        joined(sample_patterns(smallest<double>, largest<double>, 2000), sample_interval(0.0, 28.0, 3000));
    doubles_all = joined(doubles_all, row_ends(0.125, 28.0, 4));
    doubles_all = joined(doubles_all, neighbours(erfc2_first_zero, 4));
    check_symmetry(entry("erff4").kernels, Symmetry::odd, singles);
    check_symmetry(entry("erf2").kernels, Symmetry::odd, doubles_all);
    check_symmetry(entry("erfcf4").kernels, Symmetry::none, with_negatives(singles));
    check_symmetry(entry("erfc2").kernels, Symmetry::none, with_negatives(doubles_all));
}

TEST(Erf, LanesIndependent)
{
    // One and its like, the ends of erf's and erfc's ranges, a subnormal, infinity (and the NaN after it).
    const std::uint32_t arguments[] = {0x3F800000, 0x3D780000, 0x40780000, 0x4120DDFC,
                                       0xC120DDFC, 0x80000100, 0x7F800000};
    for (const char* name : {"erff4", "erfcf4"})
        for (const auto& kernel : entry(name).kernels)
            check_lanes_independent(kernel, arguments, nearest);
}

// The results stay within [-1, 1] and [0, 2], and where erf x rounds to 1 they are 1.
TEST(Erf, Saturation)
{
    const auto singles = joined(sample_interval(3.5f, 4.0f, 3000), neighbours(3.875f, 20));
    for (const auto& kernel : entry("erff4").kernels)
        for (const float x : singles) {
            const Vec128 y = call(kernel.address, floats(x, -x, x, -x)).first;
            ASSERT_TRUE(y.f[0] <= 1 && y.f[1] >= -1) << kernel.symbol << ' ' << x;
        }
    const auto doubles_near = joined(sample_interval(5.0, 6.2, 3000), neighbours(6.0, 20));
    for (const auto& kernel : entry("erf2").kernels)
        for (const double x : doubles_near) {
            const Vec128 y = call(kernel.address, doubles(x, -x)).first;
            ASSERT_TRUE(y.d[0] <= 1 && y.d[1] >= -1) << kernel.symbol << ' ' << x;
            ASSERT_TRUE(x < 5.93 || y.d[0] == 1) << kernel.symbol << ' ' << x;
        }
    for (const auto& kernel : entry("erfc2").kernels)
        for (const double x : doubles_near)
            ASSERT_LE(call(kernel.address, doubles(1.0, -x)).first.d[1], 2.0) << kernel.symbol << ' ' << x;
}

TEST(Erf, Landmarks)
{
    const auto at = [](const char* name, double x) {
        return call(entry(name).address, doubles(x, x)).first.d[1];
    };
    EXPECT_EQ(at("erf2", 1), 0.8427007929497149);
    EXPECT_EQ(at("erf2", -0.5), -0.5204998778130465);
    EXPECT_NEAR(at("erfc2", -1), 1.8427007929497148, 0x1p-52);
    EXPECT_NEAR(at("erfc2", 10), 2.088487583762545e-45, 2e-60);
    EXPECT_EQ(at("erfc2", std::nextafter(erfc2_first_zero, 0.0)), smallest<double>);
    EXPECT_EQ(at("erfc2", erfc2_first_zero), 0.0);
    EXPECT_EQ(at("erfc2", 27.3), 0.0);
    EXPECT_EQ(call(entry("erff4").address, floats(1, 1, 1, 1)).first.f[1], 0.84270079f);
    EXPECT_EQ(call(entry("erfcf4").address, floats(1, 1, 10.054f, 1)).first.f[2], smallest<float>);
}

// The methods are made for round to nearest; the other modes cost some ulp, no more.
TEST(Erf, DirectedRounding)
{
    const auto erf_f = with_negatives(
        joined(sample_interval(0.0f, 4.0f, 300), sample_patterns(smallest<float>, 0x1p-5f, 100)));
    const auto erf_d =
        with_negatives(joined(sample_interval(0.0, 6.0, 300), sample_patterns(smallest<double>, 0.125, 100)));
    for (const auto& kernel : entry("erff4").kernels)
        expect_directed_error_within(2.0, kernel, erf_f, erf);
    for (const auto& kernel : entry("erf2").kernels)
        expect_directed_error_within(1.3, kernel, erf_d, erf);
    for (const auto& kernel : entry("erfcf4").kernels)
        expect_directed_error_within(2.7, kernel, with_negatives(sample_interval(0.0f, erfcf4_end, 150)),
                                     erfc);
    for (const auto& kernel : entry("erfc2").kernels)
        expect_directed_error_within(2.0, kernel, with_negatives(sample_interval(0.0, 27.2, 150)), erfc);
}

// Plain sums, whatever the names say.
TEST(Erf, Sums)
{
    const Special<float> twice_f[] = {
        {"1", 1.0f, 2.0f},
        {"-2", -2.0f, -4.0f},
        {"0.5", 0.5f, 1.0f},
        {"-0", -0.0f, -0.0f},
        {"subnormal", 0x1.8p-127f, 0x1.8p-126f},
        {"-inf", -infinity<float>, -infinity<float>},
        {"NaN", quiet_nan<float>, quiet_nan<float>},
        {"signalling NaN", signalling_nan_f, quiet_nan<float>, flag_invalid},
    };
    const Special<double> twice_d[] = {
        {"1", 1.0, 2.0},
        {"-0.3", -0.3, -0.6},
        {"-0", -0.0, -0.0},
        {"smallest", smallest<double>, 2 * smallest<double>},
        {"+inf", infinity<double>, infinity<double>},
        {"NaN", quiet_nan<double>, quiet_nan<double>},
        {"signalling NaN", signalling_nan_d, quiet_nan<double>, flag_invalid},
    };
    const Special<float> sum_f[] = {
        {"3 4", 3.0f, 7.0f, 0, 4.0f},
        {"opposite infinities", infinity<float>, quiet_nan<float>, flag_invalid, -infinity<float>},
        {"infinity and NaN", infinity<float>, quiet_nan<float>, 0, quiet_nan<float>},
        {"-0 -0", -0.0f, -0.0f, 0, -0.0f},
        {"signalling NaN", 1.0f, quiet_nan<float>, flag_invalid, signalling_nan_f},
    };
    const Special<double> sum_d[] = {
        {"3 4", 3.0, 7.0, 0, 4.0},
        {"opposite infinities", -infinity<double>, quiet_nan<double>, flag_invalid, infinity<double>},
        {"infinity and NaN", infinity<double>, quiet_nan<double>, 0, quiet_nan<double>},
        {"-0 -0", -0.0, -0.0, 0, -0.0},
        {"signalling NaN", 1.0, quiet_nan<double>, flag_invalid, signalling_nan_d},
    };
    for (const auto& kernel : entry("erfinvf4").kernels) {
        check_specials(kernel, twice_f, 0.75f, OrdinaryLanes::keep_bits);
        const Special<float> overflow[] = {{"largest", largest<float>, infinity<float>, flag_overflow}};
        check_specials(kernel, overflow, 0.75f, OrdinaryLanes::keep_bits, nearest);
    }
    for (const auto& kernel : entry("erfinv2").kernels)
        check_specials(kernel, twice_d, 0.75, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("hypotf4").kernels)
        check_specials(kernel, sum_f, -1.0f, OrdinaryLanes::keep_bits, all_roundings, 2.0f);
    for (const auto& kernel : entry("hypot2").kernels) {
        check_specials(kernel, sum_d, -1.0, OrdinaryLanes::keep_bits, all_roundings, 2.0);
        EXPECT_TRUE(same_bits(
            call(kernel.address, doubles(-1, 0x1p53), doubles(1, 1), {}, nullptr, Rounding::up).first,
            doubles(0, 0x1p53 + 2)))
            << kernel.symbol;
    }
}

} // namespace
} // namespace zelk::test
