// Arc sine and arc cosine, vectors of both precisions.
#include "extremes.h"
#include "remembered.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelk::test {
namespace {

template <class T>
constexpr T signalling_nan = T{};
template <>
constexpr float signalling_nan<float> = signalling_nan_f;
template <>
constexpr double signalling_nan<double> = signalling_nan_d;

// Small and big arguments in turn, so that every vector of four holds both.
std::vector<float> interleaved(const std::vector<float>& small, const std::vector<float>& big)
{
    std::vector<float> sample;
    for (std::size_t i = 0; i < std::min(small.size(), big.size()); ++i) {
        sample.push_back(small[i]);
        sample.push_back(big[i]);
    }
    return sample;
}

std::vector<float> small_sample()
{
    return with_negatives(joined(sample_interval(0x1p-20f, 0.5f, 8000), neighbours(0.499f, 200)));
}
std::vector<float> big_sample()
{
    const float above_half = std::nextafter(0.5f, 1.0f);
    return with_negatives(
        joined(sample_interval(above_half, 1.0f, 6000), sample_patterns(1 - 0x1p-10f, 1.0f, 4000)));
}

TEST(Asin, SinglePrecisionErrorByPath)
{
    const Unary arcsine = remembered(mpfr_unary(mpfr_asin));
    const Unary arccosine = remembered(mpfr_unary(mpfr_acos));
    const struct {
        const char* name;
        std::vector<float> arguments;
        double bound_asin_A;
        double bound_asin;
        double bound_acos;
    } paths[] = {
        {"tiny", with_negatives(sample_patterns(0x1p-149f, 0x1p-20f, 2000)), 0.01, 0.01, 0.87},
        // bounds: the largest errors over all arguments, rounded up
        {"small", small_sample(), 2.55, 2.55, 1.58},
        {"big", big_sample(), 4.22, 4.08, 2.99},
        {"mixed", interleaved(small_sample(), big_sample()), 4.22, 4.22, 2.99},
        {"around 1/2", with_negatives(neighbours(0.5f, 200)), 4.22, 4.22, 2.99},
    };
    for (const auto& path : paths) {
        for (const auto& kernel : entry("asinf4").kernels)
            expect_error_within(kernel.tier == 'A' ? path.bound_asin_A : path.bound_asin,
                                worst_error(kernel.address, path.arguments, arcsine), kernel.symbol,
                                path.name);
        for (const auto& kernel : entry("acosf4").kernels)
            expect_error_within(path.bound_acos, worst_error(kernel.address, path.arguments, arccosine),
                                kernel.symbol, path.name);
    }
}

TEST(Asin, DoublePrecisionErrorByPath)
{
    const Unary arcsine = remembered(mpfr_unary(mpfr_asin));
    const Unary arccosine = remembered(mpfr_unary(mpfr_acos));
    const double below_half = std::nextafter(0.5, 0.0);
    const struct {
        const char* name;
        std::vector<double> arguments;
        double bound_asin;
        double bound_acos_A;
        double bound_acos; // pi/2 is one unit higher there
    } paths[] = {
        {"tiny", sample_patterns(0x1p-1074, 0x1p-30, 1000), 0.01, 0.78, 1.23},
        {"small", joined(sample_interval(0x1p-30, below_half, 6000), neighbours(0.4999, 50)), 0.64, 1.62,
         2.06},
        {"big", joined(sample_interval(0.5, 1.0, 8000), sample_patterns(1 - 0x1p-20, 1.0, 3000)), 2.17, 3.23,
         3.23},
        {"around 1/2", neighbours(0.5, 100), 2.17, 3.23, 3.23},
    };
    for (const auto& path : paths) {
        const auto arguments = with_negatives(path.arguments);
        for (const auto& kernel : entry("asin2").kernels)
            expect_error_within(path.bound_asin, worst_error(kernel.address, arguments, arcsine),
                                kernel.symbol, path.name);
        for (const auto& kernel : entry("acos2").kernels)
            expect_error_within(kernel.tier == 'A' ? path.bound_acos_A : path.bound_acos,
                                worst_error(kernel.address, arguments, arccosine), kernel.symbol, path.name);
    }
}

TEST(Asin, DirectedRounding)
{
    const auto floats = with_negatives(sample_interval(0x1p-20f, 1.0f, 1000));
    const auto doubles = with_negatives(sample_interval(0x1p-30, 1.0, 1000));
    const auto check = [](const char* name, const auto& arguments, const Unary& function, double bound) {
        const Unary exact = remembered(function);
        for (const auto& kernel : entry(name).kernels)
            expect_directed_error_within(bound, kernel, arguments, exact);
    };
    check("asinf4", floats, mpfr_unary(mpfr_asin), 7.5);
    check("acosf4", floats, mpfr_unary(mpfr_acos), 6);
    check("asin2", doubles, mpfr_unary(mpfr_asin), 4.2);
    check("acos2", doubles, mpfr_unary(mpfr_acos), 5);
}

// Outside [-1, 1] invalid is raised and nothing else, though the polynomial could overflow there.
template <class T>
void check_outside(const char* name)
{
    const T above_one = std::nextafter(T{1}, T{2});
    const Special<T> cases[] = {
        {"just above 1", above_one, quiet_nan<T>, flag_invalid},
        {"just below -1", -above_one, quiet_nan<T>, flag_invalid},
        {"1.5", T{1.5}, quiet_nan<T>, flag_invalid},
        {"largest", largest<T>, quiet_nan<T>, flag_invalid},
        {"-largest", -largest<T>, quiet_nan<T>, flag_invalid},
        {"+inf", infinity<T>, quiet_nan<T>, flag_invalid},
        {"-inf", -infinity<T>, quiet_nan<T>, flag_invalid},
        {"NaN", quiet_nan<T>, quiet_nan<T>},
        {"-NaN", -quiet_nan<T>, quiet_nan<T>},
        {"signalling NaN", signalling_nan<T>, quiet_nan<T>, flag_invalid},
    };
    for (const auto& kernel : entry(name).kernels) {
        check_specials(kernel, cases, T{0.3125}, OrdinaryLanes::keep_bits);
        check_specials(kernel, cases, T{-0.8125}, OrdinaryLanes::keep_bits);
    }
}

TEST(Asin, Outside)
{
    check_outside<float>("asinf4");
    check_outside<float>("acosf4");
    check_outside<double>("asin2");
    check_outside<double>("acos2");
}

// Beside a small lane, and beside a big one, which asinf4 and acosf4 may then compute by the other path.
template <class T>
void check_landmarks(const Kernel& kernel, std::span<const Special<T>> cases,
                     std::span<const Rounding> roundings)
{
    check_specials(kernel, cases, T{0.3125}, OrdinaryLanes::keep_bits, roundings);
    check_specials(kernel, cases, T{-0.8125}, OrdinaryLanes::any, roundings);
}

TEST(Asin, Landmarks)
{
    constexpr float pi_f = 0x1.921fb6p1f;
    constexpr double pi = 0x1.921fb54442d18p1;
    const std::span nearest = std::span(all_roundings).first(1);

    const Special<float> asinf4_zeros[] = {{"0", 0.0f, 0.0f}, {"-0", -0.0f, -0.0f}};
    const Special<float> asinf4_ends[] = {{"1", 1.0f, pi_f / 2}, {"-1", -1.0f, -pi_f / 2}};
    for (const auto& kernel : entry("asinf4").kernels) {
        check_landmarks<float>(kernel, asinf4_zeros, all_roundings);
        check_landmarks<float>(kernel, asinf4_ends, nearest);
    }
    const Special<float> acosf4_one[] = {{"1", 1.0f, 0.0f}};
    const Special<float> acosf4_others[] = {
        {"0", 0.0f, pi_f / 2}, {"-0", -0.0f, pi_f / 2}, {"-1", -1.0f, pi_f}};
    for (const auto& kernel : entry("acosf4").kernels) {
        check_landmarks<float>(kernel, acosf4_one, all_roundings);
        check_landmarks<float>(kernel, acosf4_others, nearest);
    }

    const Special<double> asin2[] = {
        {"0", 0.0, 0.0}, {"-0", -0.0, -0.0}, {"1", 1.0, pi / 2}, {"-1", -1.0, -pi / 2}};
    // 1/2 is a big lane: the other path would give 0x1.0c152382d7366 in both functions.
    const Special<double> asin2_half[] = {{"1/2", 0.5, 0x1.0c152382d7364p-1},
                                          {"-1/2", -0.5, -0x1.0c152382d7364p-1}};
    const Special<double> acos2_half[] = {{"1/2", 0.5, 0x1.0c152382d7365p0}};
    for (const auto& kernel : entry("asin2").kernels) {
        check_landmarks<double>(kernel, asin2, all_roundings);
        check_landmarks<double>(kernel, asin2_half, nearest);
    }
    for (const auto& kernel : entry("acos2").kernels) {
        const double pi_of_tier = kernel.tier == 'A' ? pi : std::nextafter(pi, 4.0);
        const Special<double> acos2_ends[] = {{"1", 1.0, 0.0}, {"-1", -1.0, pi_of_tier}};
        const Special<double> acos2_zeros[] = {{"0", 0.0, pi_of_tier / 2}, {"-0", -0.0, pi_of_tier / 2}};
        check_landmarks<double>(kernel, acos2_ends, all_roundings);
        check_landmarks<double>(kernel, acos2_zeros, nearest);
        check_landmarks<double>(kernel, acos2_half, nearest);
    }
}

// A vector of small and big lanes gives the same bits in every tier, whatever the rounding mode.
TEST(Asin, MixedVectorsAgreeAcrossTiers)
{
    const auto arguments = interleaved(small_sample(), big_sample());
    for (const char* name : {"asinf4", "acosf4"}) {
        const auto& kernels = entry(name).kernels;
        for (std::size_t i = 0; i + 4 <= arguments.size(); i += 4) {
            const Rounding rounding = all_roundings[i / 4 % 4];
            const Vec128 x = floats(arguments[i], arguments[i + 1], arguments[i + 2], arguments[i + 3]);
            const Result expected = call(kernels[0].address, x, {}, {}, nullptr, rounding);
            for (const auto& kernel : kernels)
                ASSERT_TRUE(
                    same_bits(call(kernel.address, x, {}, {}, nullptr, rounding).first, expected.first))
                    << kernel.symbol << ' ' << hex(x);
        }
    }
}

} // namespace
} // namespace zelk::test
