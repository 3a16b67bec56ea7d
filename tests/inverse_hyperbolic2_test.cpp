// Double precision asinh, acosh and atanh.
#include "oracle.h"
#include "special_lanes.h"
#include "symmetry.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double quiet_nan = std::numeric_limits<double>::quiet_NaN();

constexpr double huge = std::bit_cast<double>(std::uint64_t{0x5FE7DDDF6B095FF1}); // 1e154
// acosh: the last argument of the series, and the first that may take the vector path.
constexpr double series_end = std::bit_cast<double>(std::uint64_t{0x3FF800007FFFFFFF});
constexpr double acosh_vector = std::bit_cast<double>(std::uint64_t{0x3FF8000100000000});
const double below_1 = std::nextafter(1.0, 0.0);

TEST(InverseHyperbolic2, ErrorByPath)
{
    const struct {
        const char* function;
        Unary exact;
        const char* path;
        std::vector<double> arguments;
        double bound;
    } paths[] = {
        {"asinh2", mpfr_unary(mpfr_asinh), "series",
         with_negatives(joined(sample_patterns(smallest, 1.0, 6000), sample_interval(0.0, 1.0, 6000))), 1.5},
        {"asinh2", mpfr_unary(mpfr_asinh), "logarithm",
         with_negatives(joined(joined(sample_patterns(1.0000001, 4.0, 6000), neighbours(huge, 20)),
                               sample_patterns(4.0, largest, 6000))),
         2.3},
        {"acosh2", mpfr_unary(mpfr_acosh), "series",
         joined(sample_interval(1.0, series_end, 12000), neighbours(std::nextafter(1.0, 2.0), 1)), 4.6},
        {"acosh2", mpfr_unary(mpfr_acosh), "logarithm",
         joined(joined(sample_patterns(std::nextafter(series_end, 2.0), 4.0, 6000), neighbours(huge, 20)),
                sample_patterns(4.0, largest, 6000)),
         2.2},
        {"atanh2", mpfr_unary(mpfr_atanh), "series",
         with_negatives(joined(sample_patterns(smallest, 0.25, 6000), sample_interval(0.0, 0.25, 6000))),
         0.7},
        {"atanh2", mpfr_unary(mpfr_atanh), "logarithm",
         with_negatives(joined(sample_interval(std::nextafter(0.25, 1.0), below_1, 12000),
                               neighbours(std::nextafter(below_1, 0.0), 1))),
         2.8},
    };
    for (const auto& path : paths)
        for (const auto& kernel : entry(path.function).kernels)
            expect_error_within(path.bound, worst_error(kernel.address, path.arguments, path.exact),
                                kernel.symbol, path.path);
}

// Values at and next to the edges of the paths, in vectors that keep together (both lanes alike) and in mixed
// ones.
TEST(InverseHyperbolic2, PathEdges)
{
    const struct {
        const char* function;
        Unary exact;
        double edge;
        double bound;
    } edges[] = {
        {"asinh2", mpfr_unary(mpfr_asinh), 1.0, 2.3},
        {"asinh2", mpfr_unary(mpfr_asinh), 0x1.00001p0, 2.3},
        {"acosh2", mpfr_unary(mpfr_acosh), 1.5, 4.6},
        {"acosh2", mpfr_unary(mpfr_acosh), series_end, 4.6},
        {"acosh2", mpfr_unary(mpfr_acosh), acosh_vector, 2.2},
        {"atanh2", mpfr_unary(mpfr_atanh), 0.25, 2.8},
        {"atanh2", mpfr_unary(mpfr_atanh), 0x1.00001p-2, 2.8},
    };
    for (const auto& edge : edges)
        for (const auto& kernel : entry(edge.function).kernels) {
            const auto arguments = neighbours(edge.edge, 40);
            expect_error_within(edge.bound, worst_error(kernel.address, arguments, edge.exact), kernel.symbol,
                                "next to an edge");
            for (std::size_t i = 0; i < arguments.size(); ++i) {
                const double x = arguments[i];
                const Result alone = call(kernel.address, doubles(x, x));
                const Result mixed = call(kernel.address, doubles(edge.edge, x));
                EXPECT_EQ(mixed.first.q[1], alone.first.q[0]) << kernel.symbol << ' ' << x;
                EXPECT_EQ(alone.first.q[1], alone.first.q[0]) << kernel.symbol << ' ' << x;
            }
        }
}

TEST(InverseHyperbolic2, SpecialLanes)
{
    const Special<double> sine[] = {
        {"+0", 0.0, 0.0},
        {"-0", -0.0, -0.0},
        {"+inf", infinity, infinity},
        {"-inf", -infinity, -infinity},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_d, quiet_nan, flag_invalid},
    };
    const Special<double> cosine[] = {
        {"1", 1.0, 0.0},
        {"below 1", below_1, quiet_nan, flag_invalid},
        {"1/2", 0.5, quiet_nan, flag_invalid},
        {"smallest", smallest, quiet_nan, flag_invalid},
        {"+0", 0.0, quiet_nan, flag_invalid},
        {"-0", -0.0, quiet_nan, flag_invalid},
        {"-1", -1.0, quiet_nan, flag_invalid},
        {"-largest", -largest, quiet_nan, flag_invalid},
        {"-inf", -infinity, quiet_nan, flag_invalid},
        {"+inf", infinity, infinity},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_d, quiet_nan, flag_invalid},
    };
    const Special<double> tangent[] = {
        {"+0", 0.0, 0.0},
        {"-0", -0.0, -0.0},
        {"1", 1.0, infinity},
        {"-1", -1.0, -infinity},
        {"above 1", std::nextafter(1.0, 2.0), quiet_nan, flag_invalid},
        {"-2", -2.0, quiet_nan, flag_invalid},
        {"largest", largest, quiet_nan, flag_invalid},
        {"+inf", infinity, quiet_nan, flag_invalid},
        {"-inf", -infinity, quiet_nan, flag_invalid},
        {"NaN", quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_d, quiet_nan, flag_invalid},
    };
    // The scalar routines take the logarithm by the vector path's own steps: ordinary lanes keep their bits.
    for (const auto& kernel : entry("asinh2").kernels)
        check_specials(kernel, sine, -3.0, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("acosh2").kernels)
        check_specials(kernel, cosine, 3.0, OrdinaryLanes::keep_bits);
    for (const auto& kernel : entry("atanh2").kernels)
        check_specials(kernel, tangent, -0.75, OrdinaryLanes::keep_bits);
}

TEST(InverseHyperbolic2, NanPatterns)
{
    const std::uint64_t default_nan = 0xFFF8000000000000;
    const struct {
        const char* function;
        std::uint64_t x;
        std::uint64_t expected;
    } cases[] = {
        {"acosh2", 0x3FE0000000000000, default_nan},
        {"acosh2", 0xFFF0000000000000, default_nan},
        {"acosh2", 0x7FF8000000012345, 0x7FF8000000012345},
        {"acosh2", 0xFFF8000000012345, 0xFFF8000000012345},
        {"acosh2", 0xFFF4000000012345, 0xFFFC000000012345},
        {"asinh2", 0x7FF8000000012345, 0x7FF8000000012345},
        {"asinh2", 0xFFF4000000012345, 0xFFFC000000012345},
        {"atanh2", 0x4000000000000000, default_nan},
        {"atanh2", 0xC000000000000000, default_nan},
        {"atanh2", 0x7FF0000000000000, default_nan},
        {"atanh2", 0xFFF8000000012345, 0xFFF8000000012345},
        {"atanh2", 0x7FF4000000012345, 0x7FFC000000012345},
    };
    for (const auto& [function, x, expected] : cases)
        for (const auto& kernel : entry(function).kernels) {
            const Result result = call(kernel.address, quads(x, x));
            EXPECT_EQ(result.first.q[0], expected) << kernel.symbol << hex(result.first);
            EXPECT_EQ(result.first.q[1], expected) << kernel.symbol << hex(result.first);
        }
}

// The series add nothing to tiny arguments, subnormals among them.
TEST(InverseHyperbolic2, TinyArgumentsAreTheirOwnResult)
{
    const Special<double> cases[] = {{"smallest", smallest, smallest},
                                     {"-smallest", -smallest, -smallest},
                                     {"smallest normal", 0x1p-1022, 0x1p-1022},
                                     {"1e-300", 1e-300, 1e-300},
                                     {"-2^-30", -0x1p-30, -0x1p-30}};
    const Rounding nearest[] = {Rounding::nearest};
    for (const char* name : {"asinh2", "atanh2"})
        for (const auto& kernel : entry(name).kernels)
            check_specials(kernel, cases, 0.75, OrdinaryLanes::any, nearest);
}

// Finite results raise nothing loud, though squares of huge arguments would overflow; and a lane has the same
// bits beside a huge one as beside itself, whichever path both take.
TEST(InverseHyperbolic2, HugeArguments)
{
    const auto check = [](const Kernel& kernel, double x, double beside, Rounding rounding) {
        const auto of = [&](double low, double high) {
            return call(kernel.address, doubles(low, high), {}, {}, nullptr, rounding);
        };
        const Result both = of(x, beside);
        EXPECT_EQ(both.flags & loud_flags, 0u) << kernel.symbol << ' ' << x << ' ' << beside;
        EXPECT_EQ(both.first.q[0], of(x, x).first.q[0]) << kernel.symbol << ' ' << x << ' ' << beside;
        EXPECT_EQ(both.first.q[1], of(beside, beside).first.q[1])
            << kernel.symbol << ' ' << x << ' ' << beside;
    };
    // Below 1e154 in the high word, in the low word alone, and from there on.
    const double cases[] = {0x1.7dddep511, 0x1.7dddfp511, std::nextafter(huge, 0.0), huge, 1e200, largest};
    for (const char* name : {"asinh2", "acosh2"})
        for (const auto& kernel : entry(name).kernels)
            for (const double x : cases)
                for (const double beside : {1.0, 1.25, 2.0, huge, infinity})
                    for (const Rounding rounding : all_roundings)
                        check(kernel, x, beside, rounding);
}

// Of either path.
TEST(InverseHyperbolic2, SymmetryAndTiers)
{
    check_symmetry(entry("asinh2").kernels, Symmetry::odd,
                   joined(sample_patterns(1e-10, 1.0, 1000), sample_patterns(1.5, 1e160, 1000)));
    check_symmetry(entry("acosh2").kernels, Symmetry::none,
                   joined(sample_patterns(1.0, 1.5, 1000), sample_patterns(1.6, 1e160, 1000)));
    check_symmetry(entry("atanh2").kernels, Symmetry::odd,
                   joined(sample_patterns(1e-10, 0.25, 1000), sample_patterns(0.3, 0.99, 1000)));
}

TEST(InverseHyperbolic2, DirectedRounding)
{
    const struct {
        const char* function;
        Unary exact;
        std::vector<double> arguments;
        double bound;
    } cases[] = {
        {"asinh2", mpfr_unary(mpfr_asinh), sample_patterns(0x1p-20, 0x1p20, 2000), 3.0},
        {"acosh2", mpfr_unary(mpfr_acosh), sample_patterns(1.0, 2.0, 2000), 7.0},
        {"atanh2", mpfr_unary(mpfr_atanh), sample_patterns(0x1p-20, 0.99, 2000), 3.8},
    };
    for (const auto& [function, exact, arguments, bound] : cases)
        for (const auto& kernel : entry(function).kernels)
            for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero})
                expect_error_within(bound, worst_error(kernel.address, arguments, exact, rounding),
                                    kernel.symbol,
                                    "rounding " + std::to_string(static_cast<unsigned>(rounding)));
}

} // namespace
} // namespace zelk::test
