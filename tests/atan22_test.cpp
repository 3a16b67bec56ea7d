// Arc tangent of two arguments, vectors of both precisions, and its values on the axes.
#include "remembered.h"
#include "special_lanes.h"

#define ZELK_TIER_LETTER A
#include "invtrig/ropsAtan24Sc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

template <class T>
struct Pairs {
    std::vector<T> ys;
    std::vector<T> xs;
};

// Each pair in the four quadrants.
template <class T>
Pairs<T> in_all_quadrants(const std::vector<T>& ys, const std::vector<T>& xs)
{
    Pairs<T> pairs;
    for (std::size_t i = 0; i < std::min(ys.size(), xs.size()); ++i)
        for (const T sy : {T{1}, T{-1}})
            for (const T sx : {T{1}, T{-1}}) {
                pairs.ys.push_back(sy * ys[i]);
                pairs.xs.push_back(sx * xs[i]);
            }
    return pairs;
}

// |y| equal to |x| or one unit off, and not.
template <class T>
Pairs<T> near_diagonal(const std::vector<T>& xs)
{
    Pairs<T> pairs = in_all_quadrants(xs, xs);
    for (std::size_t i = 0; i < pairs.ys.size(); ++i)
        if (i % 3 != 0) pairs.ys[i] = std::nextafter(pairs.ys[i], i % 3 == 1 ? T{0} : pairs.ys[i] * 2);
    return pairs;
}

// The first of every `lanes` pairs replaced by one that sends its whole vector to the scalar routine.
template <class T>
Pairs<T> beside_special(Pairs<T> pairs)
{
    for (std::size_t i = 0; i < pairs.xs.size(); i += 16 / sizeof(T))
        pairs.xs[i] = 0;
    return pairs;
}

const Binary& arctangent()
{
    static const Binary exact = remembered(mpfr_binary(mpfr_atan2));
    return exact;
}

TEST(Atan22, SinglePrecisionErrorByPath)
{
    const float smallest = std::numeric_limits<float>::min();
    const float largest = std::numeric_limits<float>::max();
    const auto comparable =
        in_all_quadrants(sample_interval(0.01f, 1.0f, 5000, 1), sample_interval(0.01f, 1.0f, 5000, 2));
    const auto any_size = in_all_quadrants(sample_patterns(0x1p-149f, largest, 1500, 3),
                                           sample_patterns(std::nextafter(smallest, 1.0f), largest, 1500, 4));
    const struct {
        const char* name;
        Pairs<float> pairs;
        double bound;
    } paths[] = {
        {"comparable", comparable, 4.0},
        {"any size", any_size, 4.0},
        {"near the diagonal", near_diagonal(sample_patterns(0x1p-100f, 0x1p100f, 400, 5)), 4.0},
        {"scalar, comparable", beside_special(comparable), 1.6},
        {"scalar, any size", beside_special(any_size), 1.6},
        {"scalar, subnormal x",
         in_all_quadrants(sample_patterns(0x1p-149f, 0x1p-120f, 800, 6),
                          sample_patterns(0x1p-149f, smallest, 800, 7)),
         1.6},
        {"around the smallest normal x",
         in_all_quadrants(sample_patterns(0x1p-130f, 0x1p-120f, 20, 8), neighbours(smallest, 10)), 1.6},
    };
    for (const auto& path : paths)
        for (const auto& kernel : entry("atan2f4").kernels)
            expect_error_within(path.bound,
                                worst_error(kernel.address, path.pairs.ys, path.pairs.xs, arctangent()),
                                kernel.symbol, path.name);
}

TEST(Atan22, DoublePrecisionErrorByPath)
{
    const double largest = std::numeric_limits<double>::max();
    const struct {
        const char* name;
        Pairs<double> pairs;
    } paths[] = {
        {"comparable",
         in_all_quadrants(sample_interval(0.01, 1.0, 6000, 1), sample_interval(0.01, 1.0, 6000, 2))},
        {"any size", in_all_quadrants(sample_patterns(0x1p-1074, largest, 1500, 3),
                                      sample_patterns(0x1p-1074, largest, 1500, 4))},
        {"near the diagonal", near_diagonal(sample_patterns(0x1p-1000, 0x1p1000, 400, 5))},
        {"subnormal", in_all_quadrants(sample_patterns(0x1p-1074, 0x1p-1000, 500, 6),
                                       sample_patterns(0x1p-1074, 0x1p-1022, 500, 7))},
    };
    for (const auto& path : paths)
        for (const auto& kernel : entry("atan22").kernels)
            expect_error_within(4.7, worst_error(kernel.address, path.pairs.ys, path.pairs.xs, arctangent()),
                                kernel.symbol, path.name);
}

// Every pair of a zero, an infinity or a NaN with anything, in every lane: the exact multiple of pi/4 in
// every rounding mode, and no flag but for signalling NaNs.
template <class T>
void check_special_pairs(const char* name, T signalling, T ordinary_y, T ordinary_x, OrdinaryLanes ordinary)
{
    using Limits = std::numeric_limits<T>;
    const T values[] = {0,      Limits::denorm_min(), Limits::min() / 2,  Limits::min(),
                        T{1.5}, Limits::max(),        Limits::infinity(), Limits::quiet_NaN()};
    std::vector<T> signed_values;
    for (const T value : values) {
        signed_values.push_back(value);
        signed_values.push_back(-value);
    }
    std::vector<Special<T>> cases;
    Exact y_exact;
    Exact x_exact;
    Exact angle;
    mpfr_set_prec(angle.value, Limits::digits);
    for (const T y : signed_values) {
        for (const T x : signed_values) {
            const bool regular = std::isfinite(y) && y != 0 && std::isfinite(x) && x != 0;
            if (regular) continue;
            mpfr_set_d(y_exact.value, y, MPFR_RNDN);
            mpfr_set_d(x_exact.value, x, MPFR_RNDN);
            mpfr_atan2(angle.value, y_exact.value, x_exact.value, MPFR_RNDN);
            cases.push_back({"pair", y, static_cast<T>(mpfr_get_d(angle.value, MPFR_RNDN)), 0, x});
        }
        cases.push_back({"signalling x", y, Limits::quiet_NaN(), flag_invalid, signalling});
        cases.push_back({"signalling y", signalling, Limits::quiet_NaN(), flag_invalid, y});
    }
    for (const auto& kernel : entry(name).kernels)
        check_specials(kernel, cases, ordinary_y, ordinary, all_roundings, ordinary_x);
}

TEST(Atan22, SpecialPairs)
{
    check_special_pairs<float>("atan2f4", signalling_nan_f, 0.75f, -1.25f, OrdinaryLanes::any);
    check_special_pairs<double>("atan22", signalling_nan_d, 0.75, -1.25, OrdinaryLanes::keep_bits);
    check_special_pairs<double>("atan22", signalling_nan_d, -3.5, 1.25, OrdinaryLanes::keep_bits);
}

// The smallest normal x still takes the scalar routine, the next one does not: their last bits tell.
TEST(Atan22, BoundOfTheVectorPath)
{
    const float smallest = std::numeric_limits<float>::min();
    const float next = std::nextafter(smallest, 1.0f);
    for (const auto& kernel : without_lane_loops(entry("atan2f4").kernels)) {
        const auto angle = [&](float y, float x) {
            return call(kernel.address, floats(y, y, y, y), floats(x, x, x, x)).first.f[3];
        };
        EXPECT_EQ(angle(smallest, smallest), 0x1.921fb6p-1f) << kernel.symbol;
        EXPECT_EQ(angle(next, next), 0x1.921fb8p-1f) << kernel.symbol;
    }
}

// Quotients that underflow, and pairs that would overflow if divided the other way.
TEST(Atan22, ExtremePairsRaiseNothing)
{
    const float floats_[] = {0x1p-149f, 0x1p-127f, 0x1p-126f, 1.0f, std::numeric_limits<float>::max()};
    const double doubles_[] = {0x1p-1074, 0x1p-1023, 0x1p-1022, 1.0, std::numeric_limits<double>::max()};
    for (const float y : floats_)
        for (const float x : floats_)
            for (const auto& kernel : entry("atan2f4").kernels) {
                const Vec128 all_x = floats(x, -x, x, -x);
                const Result result = call(kernel.address, floats(y, y, -y, -y), all_x);
                EXPECT_EQ(result.flags & loud_flags, 0u) << kernel.symbol << ' ' << y << ' ' << x;
            }
    for (const double y : doubles_)
        for (const double x : doubles_)
            for (const auto& kernel : entry("atan22").kernels) {
                const Result result = call(kernel.address, doubles(y, -y), doubles(x, -x));
                EXPECT_EQ(result.flags & loud_flags, 0u) << kernel.symbol << ' ' << y << ' ' << x;
            }
}

// All tiers are one algorithm, and the angle has the sign of y.
TEST(Atan22, TiersAndSymmetry)
{
    const auto flip = [](Vec128 v, std::uint32_t even, std::uint32_t odd) {
        for (unsigned i = 0; i < 4; ++i)
            v.u[i] ^= i & 1 ? odd : even;
        return v;
    };
    const auto check = [&](const char* name, const Vec128& y, const Vec128& x, std::uint32_t even) {
        const auto& kernels = entry(name).kernels;
        const Vec128 common = call(kernels.back().address, y, x).first;
        for (const auto& kernel : kernels) {
            const Vec128 got = call(kernel.address, y, x).first;
            EXPECT_TRUE(kernel.lane_loop || same_bits(got, common)) << kernel.symbol;
            const Vec128 mirrored = flip(got, even, 0x80000000);
            EXPECT_TRUE(same_bits(call(kernel.address, flip(y, even, 0x80000000), x).first, mirrored))
                << kernel.symbol;
        }
    };
    const auto singles = with_negatives(sample_patterns(0x1p-149f, 0x1p127f, 4000, 11));
    for (std::size_t i = 0; i + 8 <= singles.size(); i += 8) {
        const float* const at = &singles[i];
        check("atan2f4", floats(at[0], at[1], at[2], at[3]), floats(at[4], at[5], at[6], at[7]), 0x80000000);
    }
    const auto doubles_ = with_negatives(sample_patterns(0x1p-1074, 0x1p1023, 4000, 12));
    for (std::size_t i = 0; i + 4 <= doubles_.size(); i += 4)
        check("atan22", doubles(doubles_[i], doubles_[i + 1]), doubles(doubles_[i + 2], doubles_[i + 3]), 0);
}

template <class T>
Worst worst_error_rounded(const void* kernel, const Pairs<T>& pairs, Rounding rounding)
{
    Worst worst;
    Exact y;
    Exact x;
    Exact exact;
    for (std::size_t i = 0; i < pairs.xs.size(); ++i) {
        const T yi = pairs.ys[i];
        const T xi = pairs.xs[i];
        T got;
        if constexpr (sizeof(T) == 4)
            got = call(kernel, floats(yi, yi, yi, yi), floats(xi, xi, xi, xi), {}, nullptr, rounding)
                      .first.f[0];
        else
            got = call(kernel, doubles(yi, yi), doubles(xi, xi), {}, nullptr, rounding).first.d[0];
        mpfr_set_d(y.value, yi, MPFR_RNDN);
        mpfr_set_d(x.value, xi, MPFR_RNDN);
        arctangent()(exact.value, y.value, x.value);
        const double error = ulp_error(got, exact.value);
        if (error > worst.ulp) worst = {error, yi, xi, got, rounding};
    }
    return worst;
}

TEST(Atan22, DirectedRounding)
{
    const auto singles =
        in_all_quadrants(sample_interval(0.01f, 1.0f, 500, 1), sample_interval(0.01f, 1.0f, 500, 2));
    const auto doubles =
        in_all_quadrants(sample_interval(0.01, 1.0, 500, 1), sample_interval(0.01, 1.0, 500, 2));
    for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero}) {
        const std::string mode = "rounding mode " + std::to_string(static_cast<unsigned>(rounding));
        for (const auto& kernel : entry("atan2f4").kernels)
            expect_error_within(6, worst_error_rounded(kernel.address, singles, rounding), kernel.symbol,
                                mode);
        for (const auto& kernel : entry("atan22").kernels)
            expect_error_within(8, worst_error_rounded(kernel.address, doubles, rounding), kernel.symbol,
                                mode);
    }
}

TEST(Atan22, OnTheAxes)
{
    const struct {
        float y;
        float x;
        float angle;
    } axes[] = {
        {-0.0f, -1.0f, -0x1.921fb6p1f}, {0.0f, -1.0f, 0x1.921fb6p1f},   {0.0f, 1.0f, 0.0f},
        {-0.0f, 1.0f, -0.0f},           {0.0f, -0.0f, 0x1.921fb6p1f},   {-0.0f, 0.0f, -0.0f},
        {2.0f, 0.0f, 0x1.921fb6p0f},    {-2.0f, -0.0f, -0x1.921fb6p0f}, {0x1p-149f, 0.0f, 0x1.921fb6p0f},
    };
    for (const auto& axis : axes)
        EXPECT_EQ(
            tier_A::ropsAtan24Sc(std::bit_cast<std::int32_t>(axis.y), std::bit_cast<std::int32_t>(axis.x)),
            std::bit_cast<std::int32_t>(axis.angle))
            << axis.y << ' ' << axis.x;
}

} // namespace
} // namespace zelk::test
