// ln x, log2 x and log10 x on double2.
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double smallest_normal = std::numeric_limits<double>::min();
constexpr double largest_subnormal = 0x0.fffffffffffffp-1022;
constexpr double quiet_nan = std::numeric_limits<double>::quiet_NaN();

// Largest errors in round to nearest, of tier A and of the others.
struct Bounds {
    double a;
    double other;
    double of(char tier) const { return tier == 'A' ? a : other; }
};

struct Function {
    const char* name;
    int (*exact)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
    int intervals[2]; // of the table, on [1, 2]: tier A, others
    Bounds whole;
    Bounds around_1;
    Bounds subnormal;
    double hardest; // the argument of the largest error that a search found
};

constexpr Function functions[] = {
    {"log2", mpfr_log, {64, 256}, {0.51, 0.507}, {0.535, 0.51}, {0.77, 0.507}, 0x1.01cec0393d723p+0},
    {"log22", mpfr_log2, {128, 128}, {0.54, 0.54}, {2.1, 2.1}, {0.51, 0.51}, 0x1.feffff91b4722p-1},
    {"log102", mpfr_log10, {64, 64}, {0.51, 0.51}, {0.56, 0.56}, {0.57, 0.51}, 0x1.02001943e038dp+0},
};

// Both ends of every table interval, with neighbours, in the binade of 1 and in the one below.
std::vector<double> interval_ends(int intervals)
{
    std::vector<double> ends;
    for (int i = 0; i < intervals; ++i) {
        const double end = 1 + (i + 0.5) / intervals;
        ends = joined(ends, joined(neighbours(end, 2), neighbours(end / 2, 2)));
    }
    return ends;
}

TEST(Log2, ErrorByPath)
{
    const auto subnormals = joined(sample_patterns(smallest, largest_subnormal, 3000),
                                   sample_interval(smallest, largest_subnormal, 3000));
    const auto whole =
        joined(joined(sample_patterns(smallest_normal, 0.5, 4000), sample_patterns(2.0, largest, 4000)),
               joined(sample_interval(0.5, 0.875, 4000), sample_interval(1.125, 2.0, 4000)));
    const auto around_1 =
        joined(joined(sample_interval(0.875, 1.125, 3000), sample_interval(1 - 0x1p-6, 1 + 0x1p-6, 4000)),
               joined(sample_interval(1 - 0x1p-20, 1 + 0x1p-20, 2000), neighbours(1.0, 500)));
    for (const Function& function : functions) {
        const Unary exact = mpfr_unary(function.exact);
        const auto measure = [&](const Kernel& kernel, const std::vector<double>& xs, Bounds bounds,
                                 const char* path) {
            expect_error_within(bounds.of(kernel.tier), worst_error(kernel.address, xs, exact), kernel.symbol,
                                path);
        };
        for (const auto& kernel : entry(function.name).kernels) {
            measure(kernel, whole, function.whole, "beyond 1/8 of 1");
            measure(kernel, around_1, function.around_1, "within 1/8 of 1");
            measure(kernel, {function.hardest}, function.around_1, "hardest found");
            measure(kernel, interval_ends(function.intervals[kernel.tier == 'A' ? 0 : 1]), function.around_1,
                    "ends of intervals");
            measure(kernel, subnormals, function.subnormal, "subnormal");
        }
    }
}

// ln and log10 lose little in the directed modes. log2 does: it splits the mantissa by an addition that
// rounds.
TEST(Log2, ErrorInDirectedModes)
{
    auto arguments = joined(joined(sample_patterns(smallest, largest, 2000), neighbours(1.0, 50)),
                            joined(sample_interval(0.5, 2.0, 2000), interval_ends(64)));
    std::erase(arguments, 1.0); // whose logarithm is -0 in round down
    for (const Function& function : functions) {
        if (std::string_view(function.name) == "log22") continue;
        for (const auto& kernel : entry(function.name).kernels)
            expect_directed_error_within(1.3, kernel, arguments, mpfr_unary(function.exact));
    }
}

// What remains of log2 there: powers of two, where the rounding of the mantissa cuts it off.
TEST(Log2, PowersOfTwoInDirectedModes)
{
    for (const auto& kernel : entry("log22").kernels)
        for (const Rounding rounding : {Rounding::down, Rounding::zero})
            for (int n = -1074; n <= 1023; ++n) {
                const double x = std::ldexp(1.0, n);
                EXPECT_EQ(call(kernel.address, doubles(x, x), {}, {}, nullptr, rounding).first.d[0], n)
                    << kernel.symbol << ", rounding " << static_cast<unsigned>(rounding);
            }
}

TEST(Log2, SpecialLanes)
{
    const Special<double> cases[] = {
        {"+inf", infinity, infinity},
        {"+0", 0.0, -infinity},
        {"-0", -0.0, -infinity},
        {"-1", -1.0, quiet_nan},
        {"-smallest", -smallest, quiet_nan},
        {"-smallest normal", -smallest_normal, quiet_nan},
        {"-largest", -largest, quiet_nan},
        {"-inf", -infinity, quiet_nan},
        {"NaN", quiet_nan, quiet_nan},
        {"-NaN", -quiet_nan, quiet_nan},
        {"signalling NaN", signalling_nan_d, quiet_nan},
        {"smallest NaN", __builtin_bit_cast(double, std::uint64_t{0x7FF0000000000001}), quiet_nan},
        {"-smallest NaN", __builtin_bit_cast(double, std::uint64_t{0xFFF0000000000001}), quiet_nan},
    };
    for (const Function& function : functions)
        for (const auto& kernel : entry(function.name).kernels) {
            for (const double ordinary : {10.0, 0.99, 1e-300})
                check_specials(kernel, cases, ordinary, OrdinaryLanes::keep_bits);
            for (const auto& item : cases) {
                if (!std::isnan(item.expected)) continue;
                const std::uint64_t pattern = std::bit_cast<std::uint64_t>(item.x);
                const Result result = call(kernel.address, quads(pattern, pattern));
                EXPECT_TRUE(same_bits(result.first, quads(~std::uint64_t{0}, ~std::uint64_t{0})))
                    << kernel.symbol << ' ' << item.name << ' ' << hex(result.first);
            }
        }
}

// Subnormals and normals beside each other, around every limit of a class.
TEST(Log2, MixedVectors)
{
    const double candidates[] = {smallest,
                                 0x1p-1074 * 0xFFFFFFFFp0,
                                 0x1p-1042,
                                 largest_subnormal,
                                 smallest_normal,
                                 1.0,
                                 std::nextafter(1.0, 0.0),
                                 3.0,
                                 largest,
                                 infinity,
                                 0.0,
                                 -1.0};
    for (const Function& function : functions)
        for (const auto& kernel : entry(function.name).kernels)
            for (const double a : candidates)
                for (const double b : candidates) {
                    const Result both = call(kernel.address, doubles(a, b));
                    EXPECT_EQ(both.flags & loud_flags, 0u) << kernel.symbol << ' ' << a << ' ' << b;
                    EXPECT_EQ(both.first.q[0], call(kernel.address, doubles(a, a)).first.q[0])
                        << kernel.symbol << ' ' << a << ' ' << b;
                    EXPECT_EQ(both.first.q[1], call(kernel.address, doubles(b, b)).first.q[1])
                        << kernel.symbol << ' ' << a << ' ' << b;
                }
}

// log2 rounds the mantissa with bits forced into it, which is inexact even where the result is exact.
constexpr unsigned quiet_flags = flag_denormal | flag_inexact;

TEST(Log2, Landmarks)
{
    for (const Function& function : functions)
        for (const auto& kernel : entry(function.name).kernels) {
            const Result ones = call(kernel.address, doubles(1, 1));
            EXPECT_TRUE(same_bits(ones.first, Vec128{})) << kernel.symbol;
            EXPECT_EQ(ones.flags & ~quiet_flags, 0u) << kernel.symbol;
            const Result beside_zero = call(kernel.address, doubles(1, 0));
            EXPECT_EQ(beside_zero.first.q[0], 0u) << kernel.symbol;
        }
    for (const auto& kernel : entry("log22").kernels)
        for (int n = -1074; n <= 1023; ++n) {
            const double x = std::ldexp(1.0, n);
            for (const Vec128& v : {doubles(x, x), doubles(x, -1), doubles(0, x)}) {
                const Result result = call(kernel.address, v);
                const int lane = v.d[0] == x ? 0 : 1;
                EXPECT_EQ(result.first.d[lane], n) << kernel.symbol;
                EXPECT_EQ(result.flags & ~quiet_flags, 0u) << kernel.symbol << " 2^" << n;
            }
        }
    const struct {
        const char* name;
        double of_smallest;
    } smallest_results[] = {{"log2", -744.4400719213812}, {"log22", -1074}, {"log102", -323.3062153431158}};
    for (const auto& item : smallest_results)
        for (const auto& kernel : entry(item.name).kernels)
            EXPECT_EQ(call(kernel.address, doubles(smallest, 2)).first.d[0], item.of_smallest)
                << kernel.symbol;
    for (const auto& kernel : entry("log102").kernels)
        EXPECT_EQ(call(kernel.address, doubles(10, 1e22)).first.d[0], 1.0) << kernel.symbol;
    for (const auto& kernel : entry("log2").kernels)
        EXPECT_EQ(call(kernel.address, doubles(0x1.5bf0a8b145769p1, 2)).first.d[0], 1.0) << kernel.symbol;
}

} // namespace
} // namespace zelk::test
