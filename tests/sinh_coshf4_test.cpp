// Single precision sinh and cosh.
#include "oracle.h"
#include "special_lanes.h"
#include "symmetry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float largest = std::numeric_limits<float>::max();
constexpr float smallest = std::numeric_limits<float>::denorm_min();
constexpr float quiet_nan = std::numeric_limits<float>::quiet_NaN();
constexpr float min_bound = 0x1.3a92a4p-12f; // sinh x = x below
constexpr float below_min_bound = 0x1.3a92a2p-12f;
constexpr float last_finite = 0x1.65a9f8p+6f; // 89.415985, of both functions
constexpr float first_infinite = 0x1.65a9fap+6f;
constexpr float below_704 = 0x1.5ffffep+9f; // the last argument that the arithmetic sees

TEST(SinhCoshf4, ErrorByPath)
{
    const struct {
        const char* name;
        std::vector<float> arguments;
        double bound_sinh;
        double bound_cosh;
    } paths[] = {
        {"sinh x = x", sample_patterns(smallest, below_min_bound, 6000), 0.26, 0.53},
        {"below 0.35", joined(sample_patterns(min_bound, 0.35f, 12000), neighbours(min_bound, 50)), 1.11,
         0.53},
        {"above 0.35", joined(sample_patterns(0.35f, 89.0f, 12000), sample_interval(0.35f, 89.0f, 12000)),
         0.57, 0.53},
        {"overflow", joined(neighbours(last_finite, 50), sample_patterns(first_infinite, largest, 1000)),
         0.53, 0.53},
    };
    for (const auto& path : paths) {
        const auto arguments = with_negatives(path.arguments);
        for (const auto& kernel : entry("sinhf4").kernels)
            expect_error_within(path.bound_sinh,
                                worst_error(kernel.address, arguments, mpfr_unary(mpfr_sinh)), kernel.symbol,
                                path.name);
        for (const auto& kernel : entry("coshf4").kernels)
            expect_error_within(path.bound_cosh,
                                worst_error(kernel.address, arguments, mpfr_unary(mpfr_cosh)), kernel.symbol,
                                path.name);
    }
}

TEST(SinhCoshf4, SpecialLanes)
{
    const Special<float> sine[] = {
        {"+0", 0.0f, 0.0f},
        {"-0", -0.0f, -0.0f},
        {"smallest", smallest, smallest},
        {"-smallest normal", -0x1p-126f, -0x1p-126f},
        {"1e-4", 1e-4f, 1e-4f},
        {"last identity", below_min_bound, below_min_bound},
        {"last identity, negative", -below_min_bound, -below_min_bound},
        {"704", 704.0f, infinity},
        {"-704", -704.0f, -infinity},
        {"largest", largest, infinity},
        {"-largest", -largest, -infinity},
        {"+inf", infinity, infinity},
        {"-inf", -infinity, -infinity},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_f, quiet_nan, flag_invalid},
    };
    const Special<float> cosine[] = {
        {"704", 704.0f, infinity},      {"-704", -704.0f, infinity},
        {"largest", largest, infinity}, {"-largest", -largest, infinity},
        {"+inf", infinity, infinity},   {"-inf", -infinity, infinity},
        {"NaN", quiet_nan, quiet_nan},  {"signalling NaN", signalling_nan_f, quiet_nan, flag_invalid},
    };
    // The polynomial's constant term is 1 + 5.5e-10: only an upward rounding sees it.
    const Special<float> cosine_of_zero[] = {{"+0", 0.0f, 1.0f}, {"-0", -0.0f, 1.0f}};
    const Rounding not_upward[] = {Rounding::nearest, Rounding::down, Rounding::zero};
    for (const auto& kernel : entry("sinhf4").kernels)
        check_specials(kernel, sine, 1.25f, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("coshf4").kernels) {
        check_specials(kernel, cosine, 1.25f, OrdinaryLanes::keep_bits);
        check_specials(kernel, cosine_of_zero, 1.25f, OrdinaryLanes::keep_bits, not_upward);
    }
}

// Up to 704 an infinite result comes from the final rounding, with its flag and its rounding mode.
TEST(SinhCoshf4, Overflow)
{
    const Special<float> to_nearest[] = {
        {"89", 89.0f, 0x1.51c2ccp+127f},
        {"first overflow", first_infinite, infinity, flag_overflow},
        {"90", 90.0f, infinity, flag_overflow},
        {"below 704", below_704, infinity, flag_overflow},
    };
    const Special<float> towards_zero[] = {
        {"first overflow", first_infinite, largest, flag_overflow},
        {"below 704", below_704, largest, flag_overflow},
    };
    const Rounding nearest[] = {Rounding::nearest};
    const Rounding zero[] = {Rounding::zero, Rounding::down};
    for (const char* name : {"sinhf4", "coshf4"})
        for (const auto& kernel : entry(name).kernels) {
            check_specials(kernel, to_nearest, 1.25f, OrdinaryLanes::keep_bits, nearest);
            check_specials(kernel, towards_zero, 1.25f, OrdinaryLanes::keep_bits, zero);
        }
}

// A quiet NaN keeps its sign and payload.
TEST(SinhCoshf4, NanPayload)
{
    for (const char* name : {"sinhf4", "coshf4"})
        for (const auto& kernel : entry(name).kernels) {
            const Result result = call(kernel.address, words(0xFFC12345, 0x7F812345, 0x7FFFFFFF, 0));
            EXPECT_EQ(result.first.u[0], 0xFFC12345u) << kernel.symbol;
            EXPECT_EQ(result.first.u[1], 0x7FC12345u) << kernel.symbol;
            EXPECT_EQ(result.first.u[2], 0x7FFFFFFFu) << kernel.symbol;
        }
}

// Only in round to nearest: the kernels work on x itself, and n is not rounded symmetrically in the other
// modes.
TEST(SinhCoshf4, SymmetryAndTiers)
{
    const auto arguments = joined(sample_patterns(0x1p-30f, 800.0f, 6000), neighbours(704.0f, 10));
    const Rounding nearest[] = {Rounding::nearest};
    check_symmetry(entry("sinhf4").kernels, Symmetry::odd, arguments, nearest);
    check_symmetry(entry("coshf4").kernels, Symmetry::even, arguments, nearest);
    for (const char* name : {"sinhf4", "coshf4"})
        check_symmetry(entry(name).kernels, Symmetry::none, with_negatives(arguments));
}

// |f| goes up to 1, beyond what the polynomial was fitted for.
TEST(SinhCoshf4, DirectedRounding)
{
    const auto arguments = sample_patterns(0.35f, 89.0f, 4000);
    for (const auto& kernel : entry("sinhf4").kernels)
        expect_directed_error_within(300, kernel, arguments, mpfr_unary(mpfr_sinh));
    for (const auto& kernel : entry("coshf4").kernels)
        expect_directed_error_within(140, kernel, arguments, mpfr_unary(mpfr_cosh));
}

} // namespace
} // namespace zelk::test
