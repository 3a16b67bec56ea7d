// Cube roots and reciprocal cube roots.
#include "extremes.h"
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelk::test {
namespace {

void reciprocal_cube_root(mpfr_ptr result, mpfr_srcptr x)
{
    mpfr_cbrt(result, x, MPFR_RNDN);
    mpfr_ui_div(result, 1, result, MPFR_RNDN);
}

// All three exponent classes, both signs, the ends of the table's intervals, subnormals.
template <class T>
std::vector<T> arguments(int intervals)
{
    auto sample =
        joined(sample_patterns(smallest_normal<T>, largest<T>, 12000), sample_interval(T(1), T(8), 12000));
    sample = joined(sample, sample_patterns(smallest<T>, smallest_normal<T>, 4000));
    for (int i = 0; i <= intervals; ++i)
        for (const T scale : {T(1), T(2), T(4)})
            sample = joined(sample, neighbours(scale * (1 + T(i) / T(intervals)), 1));
    return with_negatives(sample);
}

TEST(Cbrt, Error)
{
    for (const auto& kernel : entry("cbrtf4").kernels)
        expect_error_within(kernel.tier == 'A' ? 2.37 : 1.95,
                            worst_error(kernel.address, arguments<float>(64), mpfr_unary(mpfr_cbrt)),
                            kernel.symbol, "all");
    for (const auto& kernel : entry("invcbrtf4").kernels)
        expect_error_within(2.9, worst_error(kernel.address, arguments<float>(64), reciprocal_cube_root),
                            kernel.symbol, "all");
    for (const auto& kernel : entry("cbrt2").kernels)
        expect_error_within(6.9, worst_error(kernel.address, arguments<double>(128), mpfr_unary(mpfr_cbrt)),
                            kernel.symbol, "all");
    for (const auto& kernel : entry("invcbrt2").kernels)
        expect_error_within(2.8, worst_error(kernel.address, arguments<double>(128), reciprocal_cube_root),
                            kernel.symbol, "all");
}

// Every binade: a wrong remainder of the exponent modulo 3 shows as a factor.
TEST(Cbrt, EveryExponent)
{
    std::vector<float> singles;
    std::vector<double> doubles;
    for (int e = -149; e < 128; ++e)
        singles.push_back(std::ldexp(1.5f, e) > 0 ? std::ldexp(1.5f, e) : 0x1p-149f);
    for (int e = -1074; e < 1024; ++e)
        doubles.push_back(std::ldexp(1.0, e));
    for (const auto& kernel : entry("cbrtf4").kernels)
        expect_error_within(2.37, worst_error(kernel.address, singles, mpfr_unary(mpfr_cbrt)), kernel.symbol,
                            "binades");
    for (const auto& kernel : entry("invcbrtf4").kernels)
        expect_error_within(2.9, worst_error(kernel.address, singles, reciprocal_cube_root), kernel.symbol,
                            "binades");
    for (const auto& kernel : entry("cbrt2").kernels)
        expect_error_within(6.9, worst_error(kernel.address, doubles, mpfr_unary(mpfr_cbrt)), kernel.symbol,
                            "binades");
    for (const auto& kernel : entry("invcbrt2").kernels)
        expect_error_within(2.8, worst_error(kernel.address, doubles, reciprocal_cube_root), kernel.symbol,
                            "binades");
}

// Irregular lanes of every kind beside ordinary ones: those keep their bits.
TEST(Cbrt, SpecialLanes)
{
    const Special<float> root_f[] = {
        {"+0", 0.0f, 0.0f},
        {"-0", -0.0f, -0.0f},
        {"+inf", infinity<float>, infinity<float>},
        {"-inf", -infinity<float>, -infinity<float>},
        {"NaN", quiet_nan<float>, quiet_nan<float>},
        {"signalling NaN", signalling_nan_f, quiet_nan<float>, flag_invalid},
    };
    const Special<double> root_d[] = {
        {"+0", 0.0, 0.0},
        {"-0", -0.0, -0.0},
        {"+inf", infinity<double>, infinity<double>},
        {"-inf", -infinity<double>, -infinity<double>},
        {"NaN", quiet_nan<double>, quiet_nan<double>},
        {"signalling NaN", signalling_nan_d, quiet_nan<double>, flag_invalid},
    };
    const Special<float> inverse_f[] = {
        {"+0", 0.0f, infinity<float>, flag_divide_by_zero},
        {"-0", -0.0f, -infinity<float>, flag_divide_by_zero},
        {"+inf", infinity<float>, 0.0f},
        {"-inf", -infinity<float>, -0.0f},
        {"NaN", quiet_nan<float>, quiet_nan<float>},
        {"signalling NaN", signalling_nan_f, quiet_nan<float>, flag_invalid},
    };
    const Special<double> inverse_d[] = {
        {"+0", 0.0, infinity<double>, flag_divide_by_zero},
        {"-0", -0.0, -infinity<double>, flag_divide_by_zero},
        {"+inf", infinity<double>, 0.0},
        {"-inf", -infinity<double>, -0.0},
        {"NaN", quiet_nan<double>, quiet_nan<double>},
        {"signalling NaN", signalling_nan_d, quiet_nan<double>},
    };
    for (const auto& kernel : entry("cbrtf4").kernels)
        check_specials(kernel, root_f, 3.0f, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("invcbrtf4").kernels)
        check_specials(kernel, inverse_f, 3.0f, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("cbrt2").kernels)
        check_specials(kernel, root_d, 3.0, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("invcbrt2").kernels) {
        check_specials(kernel, inverse_d, 3.0, OrdinaryLanes::keep_bits);
        EXPECT_TRUE(same_bits(call(kernel.address, doubles(quiet_nan<double>, -quiet_nan<double>)).first,
                              quads(~std::uint64_t{0}, ~std::uint64_t{0})))
            << kernel.symbol;
    }
}

// A subnormal beside an ordinary lane, in every position.
TEST(Cbrt, SubnormalBesideOrdinary)
{
    for (const char* name : {"cbrtf4", "invcbrtf4"})
        for (const auto& kernel : entry(name).kernels) {
            const Result ordinary = call(kernel.address, floats(3, 3, 3, 3));
            const Result subnormal =
                call(kernel.address, floats(0x1.8p-140f, 0x1.8p-140f, 0x1.8p-140f, 0x1.8p-140f));
            for (unsigned where = 0; where < 16; ++where) {
                Vec128 x;
                for (unsigned lane = 0; lane < 4; ++lane)
                    x.f[lane] = where >> lane & 1 ? 0x1.8p-140f : 3.0f;
                const Result result = call(kernel.address, x);
                EXPECT_EQ(result.flags & loud_flags, 0u) << kernel.symbol;
                for (unsigned lane = 0; lane < 4; ++lane)
                    EXPECT_EQ(result.first.u[lane], (where >> lane & 1 ? subnormal : ordinary).first.u[lane])
                        << kernel.symbol << hex(x);
            }
        }
}

// Tier A rounds the magnitude of the root, the other tiers the root with its sign: in directed modes these
// differ. The bits are those of a second implementation of the steps, lane by lane in scalar arithmetic.
TEST(Cbrt, SignInDirectedModes)
{
    const Vec128 x = floats(-2.5f, 2.5f, -1.7f, 1.7f);
    const struct {
        Rounding rounding;
        Vec128 tier_A;
        Vec128 others;
    } rows[] = {
        {Rounding::nearest, words(0xBFADB905, 0x3FADB905, 0xBF98C40F, 0x3F98C40F),
         words(0xBFADB905, 0x3FADB905, 0xBF98C40F, 0x3F98C40F)},
        {Rounding::down, words(0xBFADB903, 0x3FADB903, 0xBF98C40E, 0x3F98C40E),
         words(0xBFADB907, 0x3FADB905, 0xBF98C40F, 0x3F98C40E)},
        {Rounding::up, words(0xBFADB907, 0x3FADB907, 0xBF98C410, 0x3F98C410),
         words(0xBFADB905, 0x3FADB907, 0xBF98C40E, 0x3F98C40F)},
        {Rounding::zero, words(0xBFADB903, 0x3FADB903, 0xBF98C40E, 0x3F98C40E),
         words(0xBFADB905, 0x3FADB905, 0xBF98C40E, 0x3F98C40E)},
    };
    for (const auto& row : rows)
        for (const auto& kernel : without_lane_loops(entry("cbrtf4").kernels)) {
            EXPECT_EQ(hex(call(kernel.address, x, {}, {}, nullptr, row.rounding).first),
                      hex(kernel.tier == 'A' ? row.tier_A : row.others))
                << kernel.symbol << ", rounding " << static_cast<unsigned>(row.rounding);
            // An irregular lane beside them changes nothing.
            Vec128 irregular = x;
            irregular.f[3] = -0.0f;
            Vec128 expected = kernel.tier == 'A' ? row.tier_A : row.others;
            expected.f[3] = -0.0f;
            EXPECT_EQ(hex(call(kernel.address, irregular, {}, {}, nullptr, row.rounding).first),
                      hex(expected))
                << kernel.symbol << ", rounding " << static_cast<unsigned>(row.rounding);
        }
}

TEST(Cbrt, Landmarks)
{
    const struct {
        float x;
        float root;
    } cubes[] = {{1, 1}, {8, 2}, {27, 3}, {-64, -4}, {125, 5}, {0x1p-3f, 0.5f}, {0x1p126f, 0x1p42f}};
    for (const auto& kernel : entry("cbrtf4").kernels)
        for (const auto& cube : cubes)
            EXPECT_NEAR(call(kernel.address, floats(cube.x, cube.x, cube.x, cube.x)).first.f[2], cube.root,
                        2.6f * (std::nextafter(std::fabs(cube.root), 1e30f) - std::fabs(cube.root)))
                << kernel.symbol << ' ' << cube.x;
    // The polynomial puts 1/cbrt 8 two ulp below a half.
    for (const auto& kernel : entry("invcbrtf4").kernels)
        EXPECT_EQ(call(kernel.address, floats(8, 8, 8, 8)).first.u[0],
                  kernel.lane_loop ? 0x3F000000u : 0x3EFFFFFEu)
            << kernel.symbol;
}

} // namespace
} // namespace zelk::test
