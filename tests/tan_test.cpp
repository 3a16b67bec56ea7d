// Tangent.
#include "hard_arguments.h"
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr float largest_f = std::numeric_limits<float>::max();
constexpr double largest_d = std::numeric_limits<double>::max();

template <class T>
std::vector<T> above(std::vector<T> arguments, T bound)
{
    std::erase_if(arguments, [bound](T x) { return x < bound; });
    return arguments;
}

TEST(Tan, ErrorByPathf4)
{
    const auto fast =
        joined(joined(sample_patterns(0x1p-149f, 10000.0f, 8000), sample_interval(0x1p-20f, 10000.0f, 8000)),
               sample_interval(0x1p-20f, 3.2f, 8000));
    const auto medium = sample_patterns(std::nextafter(10000.0f, largest_f), 0x1p30f, 12000);
    const auto huge = sample_patterns(std::nextafter(0x1p30f, largest_f), largest_f, 12000);
    const auto hard = above(near_multiples_of_half_pi_f(), std::nextafter(0x1p30f, largest_f));
    for (const auto& kernel : entry("tanf4").kernels) {
        const bool A = kernel.tier == 'A';
        const auto check = [&](double bound, const std::vector<float>& arguments, const char* path) {
            expect_error_within(bound,
                                worst_error(kernel.address, with_negatives(arguments), mpfr_unary(mpfr_tan)),
                                kernel.symbol, path);
        };
        check(4.27, fast, "fast"); // over all arguments
        check(3.75, medium, "medium");
        check(A ? 3.93 : 0.52, huge, "huge");
        check(A ? 3.93 : 5.86, hard, "hardest");
    }
}

TEST(Tan, ErrorByPath2)
{
    const auto fast =
        joined(joined(sample_patterns(0x1p-1074, 128000.0, 6000), sample_interval(0x1p-20, 128000.0, 8000)),
               sample_interval(0x1p-20, 3.2, 8000));
    const auto medium = sample_patterns(128001.0, std::nextafter(0x1p30, 0.0), 12000);
    const auto huge = joined(sample_patterns(0x1p30, largest_d, 12000),
                             joined(above(near_multiples_of_half_pi(), 0x1p30),
                                    {__builtin_bit_cast(double, 0x4C4E7E44A78AC18CULL)}));
    for (const auto& kernel : entry("tan2").kernels) {
        const bool A = kernel.tier == 'A';
        const auto check = [&](double bound, const std::vector<double>& arguments, const char* path) {
            expect_error_within(bound,
                                worst_error(kernel.address, with_negatives(arguments), mpfr_unary(mpfr_tan)),
                                kernel.symbol, path);
        };
        check(3.7, fast, "fast");
        check(A ? 4.3 : 3.7, medium, "medium");
        check(A ? 4.3 : 0.6, huge, "huge, hardest included");
    }
}

// The scalar routine below 2^30, where it serves lanes beside a huge one.
TEST(Tan, BesideAHugeLane)
{
    auto singles = sample_patterns(10001.0f, 0x1p30f, 3000);
    for (std::size_t i = 0; i < singles.size(); i += 4)
        singles[i] = 0x1p31f;
    auto doubles = sample_patterns(128001.0, 0x1p30, 3000);
    for (std::size_t i = 0; i < doubles.size(); i += 2)
        doubles[i] = 0x1p40;
    for (const auto& kernel : entry("tanf4").kernels)
        expect_error_within(kernel.tier == 'A' ? 3.75 : 0.52,
                            worst_error(kernel.address, singles, mpfr_unary(mpfr_tan)), kernel.symbol,
                            "beside a huge lane");
    for (const auto& kernel : entry("tan2").kernels)
        expect_error_within(kernel.tier == 'A' ? 4.3 : 0.6,
                            worst_error(kernel.address, doubles, mpfr_unary(mpfr_tan)), kernel.symbol,
                            "beside a huge lane");
}

template <class T>
std::vector<Special<T>> specials()
{
    constexpr T infinity = std::numeric_limits<T>::infinity();
    constexpr T nan = std::numeric_limits<T>::quiet_NaN();
    return {{"+inf", infinity, nan, flag_invalid}, {"-inf", -infinity, nan, flag_invalid}, {"NaN", nan, nan}};
}

TEST(Tan, SpecialLanes)
{
    const Special<float> signalling_f[] = {
        {"signalling NaN", signalling_nan_f, std::numeric_limits<float>::quiet_NaN(), flag_invalid}};
    const Special<double> signalling_d[] = {
        {"signalling NaN", signalling_nan_d, std::numeric_limits<double>::quiet_NaN(), flag_invalid}};
    for (const auto& kernel : entry("tanf4").kernels) {
        // Tier A takes the whole vector through the reduction.
        const auto ordinary = kernel.tier == 'A' ? OrdinaryLanes::any : OrdinaryLanes::keep_bits;
        check_specials(kernel, specials<float>(), 1.25f, ordinary);
        check_specials(kernel, signalling_f, 1.25f, ordinary);
    }
    for (const auto& kernel : entry("tan2").kernels) {
        const auto ordinary = kernel.tier == 'A' ? OrdinaryLanes::any : OrdinaryLanes::keep_bits;
        check_specials(kernel, specials<double>(), 1.25, ordinary);
        check_specials(kernel, signalling_d, 1.25, ordinary);
    }
}

// Every mixture of small, medium and huge lanes: odd symmetry, no loud flag, ordinary lanes within the error
// bound (and bit for bit beside a huge lane outside tier A).
TEST(Tan, MixedVectors)
{
    const float candidates[] = {10000.0f, std::nextafter(10000.0f, largest_f), 20000.0f,
                                0x1p30f,  std::nextafter(0x1p30f, largest_f),  3.0e9f,
                                largest_f};
    for (const auto& kernel : entry("tanf4").kernels) {
        const Vec128 small = floats(0.75f, -3.0f, 1.5707964f, 1e-30f);
        const Result ordinary = call(kernel.address, small);
        for (const float special : candidates)
            for (unsigned mask = 1; mask < 16; ++mask) {
                Vec128 x = small;
                for (unsigned lane = 0; lane < 4; ++lane)
                    if (mask >> lane & 1) x.f[lane] = special;
                Vec128 minus_x = x;
                for (auto& word : minus_x.u)
                    word ^= 0x80000000;
                const Result result = call(kernel.address, x);
                Result mirrored = call(kernel.address, minus_x);
                for (auto& word : mirrored.first.u)
                    word ^= 0x80000000;
                EXPECT_TRUE(same_bits(result.first, mirrored.first)) << kernel.symbol << hex(x);
                EXPECT_EQ(result.flags & loud_flags, 0u) << kernel.symbol << hex(x);
                for (unsigned lane = 0; lane < 4; ++lane) {
                    Exact exact;
                    mpfr_set_flt(exact.value, x.f[lane], MPFR_RNDN);
                    mpfr_tan(exact.value, exact.value, MPFR_RNDN);
                    EXPECT_LE(ulp_error(result.first.f[lane], exact.value), 4.27) << kernel.symbol << hex(x);
                    if (kernel.tier != 'A' && special > 0x1p30f && !(mask >> lane & 1)) {
                        EXPECT_EQ(result.first.u[lane], ordinary.first.u[lane]) << kernel.symbol << hex(x);
                    }
                }
            }
    }
}

// Finite doubles of any size raise nothing loud, in any rounding mode, beside any other.
TEST(Tan, FiniteArgumentsAreQuiet)
{
    const double candidates[] = {1.0, 128000.0, 128001.0, 0x1p30, 0x1p31, 1e300, largest_d, 0x1p-1074};
    for (const auto& kernel : entry("tan2").kernels)
        for (const double a : candidates)
            for (const double b : candidates)
                for (const Rounding rounding : all_roundings)
                    EXPECT_EQ(call(kernel.address, doubles(a, -b), {}, {}, nullptr, rounding).flags &
                                  loud_flags,
                              0u)
                        << kernel.symbol << ' ' << a << ' ' << b;
}

TEST(Tan, Landmarks)
{
    for (const auto& kernel : entry("tanf4").kernels) {
        const Vec128 zeros = floats(0.0f, -0.0f, -0.0f, 0.0f);
        EXPECT_TRUE(same_bits(call(kernel.address, zeros).first, zeros)) << kernel.symbol;
        EXPECT_LT(call(kernel.address, floats(1.57079637f, 0, 0, 0)).first.f[0], -2e7f) << kernel.symbol;
    }
    for (const auto& kernel : entry("tan2").kernels) {
        const Vec128 zeros = doubles(0.0, -0.0);
        EXPECT_TRUE(same_bits(call(kernel.address, zeros).first, zeros)) << kernel.symbol;
    }
}

} // namespace
} // namespace zelk::test
