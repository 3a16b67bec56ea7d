// The scalar binary64 logarithms.
#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest_normal = std::numeric_limits<double>::min();

// Both sides of every row of the table, in the binade from `scale`.
std::vector<double> row_borders(double scale)
{
    std::vector<double> result;
    for (int j = 0; j < 256; ++j)
        result = joined(std::move(result), neighbours(scale * (1 + j / 256.0), 8));
    return result;
}
std::vector<double> minus_one(std::vector<double> xs)
{
    for (double& x : xs)
        x -= 1;
    return xs;
}
std::vector<double> without(std::vector<double> xs, double from, double to)
{
    std::erase_if(xs, [&](double x) { return x >= from && x <= to; });
    return xs;
}

// In round to nearest; in the directed modes, where an ulp is the rounding's own, of fewer arguments.
void check_errors(const char* name, const Unary& exact, std::span<const double> xs, double bound,
                  const char* path)
{
    std::vector<double> some;
    for (std::size_t i = 0; i < xs.size(); i += 8)
        some.push_back(xs[i]);
    for (const ScalarKernel& kernel : tier_kernels(name)) {
        expect_error_within(bound, worst_error(kernel, xs, exact), kernel.symbol, path);
        for (const auto& [rounding, mode] :
             {std::pair{Rounding::down, " rounding down"}, std::pair{Rounding::up, " rounding up"},
              std::pair{Rounding::zero, " rounding to zero"}})
            expect_error_within(2 * bound, worst_error(kernel, some, exact, {rounding}), kernel.symbol,
                                std::string(path) + mode);
    }
}

TEST(LogScalar, ErrorByPath)
{
    const Unary exact = mpfr_unary(mpfr_log);
    const auto check = [&](const std::vector<double>& xs, double bound, const char* path) {
        check_errors("log_scalar", exact, xs, bound, path);
    };
    check(sample_patterns(smallest_normal, largest, 6000), 0.501, "all binades");
    check(sample_patterns(0x1p-1074, smallest_normal, 1000), 0.5, "subnormal");
    check(without(joined(sample_interval(1 - 0x1p-8, 1 + 0x1p-8, 4000), neighbours(1.0, 1000)), 1, 1), 0.504,
          "next to 1");
    check(without(joined(row_borders(1), row_borders(0.5)), 1, 1), 0.504, "borders of the rows");
}

TEST(Log1pScalar, ErrorByPath)
{
    const Unary exact = mpfr_unary(mpfr_log1p);
    const auto check = [&](const std::vector<double>& xs, double bound, const char* path) {
        check_errors("log1p_scalar", exact, xs, bound, path);
    };
    check(with_negatives(sample_patterns(0x1p-1074, 0x1p-60, 2000)), 0.501, "tiny");
    check(with_negatives(
              joined(sample_patterns(0x1p-66, 0x1p-8, 4000), sample_interval(0x1p-10, 0x1p-8, 2000))),
          0.504, "polynomial alone");
    check(joined(with_negatives(neighbours(0x1p-8, 200)), sample_interval(-1 + 0x1p-53, 3, 4000)), 0.504,
          "ordinary");
    check(sample_patterns(-0x1.fffffffffffffp-1, -0.99, 2000), 0.501, "next to -1");
    check(sample_patterns(1, largest, 4000), 0.501, "large");
    check(without(minus_one(joined(row_borders(1), joined(row_borders(0.5), row_borders(2)))), 0, 0), 0.504,
          "borders of the rows");
}

// Ordinary arguments raise inexact and nothing else, however small the terms in between.
TEST(LogScalar, OrdinaryArgumentsRaiseInexactAlone)
{
    for (const ScalarKernel& kernel : scalar_kernels("log_scalar"))
        for (const double x : sample_patterns(smallest_normal, largest, 2000))
            EXPECT_EQ(flag_names(call_scalar(kernel, x).flags), "inexact") << kernel.symbol << x;
    for (const ScalarKernel& kernel : scalar_kernels("log1p_scalar"))
        for (const double x : with_negatives(sample_patterns(smallest_normal, 0.99, 2000)))
            EXPECT_EQ(flag_names(call_scalar(kernel, x).flags), "inexact") << kernel.symbol << x;
}

TEST(LogScalar, SpecialArguments)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* name;
        double x;
        double expected;
        unsigned flags;
    } cases[] = {
        {"log_scalar", 0.0, -infinity, flag_divide_by_zero},
        {"log_scalar", -0.0, -infinity, flag_divide_by_zero},
        {"log_scalar", 1.0, 0.0, 0},
        {"log_scalar", -1.0, nan, flag_invalid},
        {"log_scalar", -infinity, nan, flag_invalid},
        {"log_scalar", infinity, infinity, 0},
        {"log_scalar", nan, nan, 0},
        {"log1p_scalar", 0.0, 0.0, 0},
        {"log1p_scalar", -0.0, -0.0, 0},
        {"log1p_scalar", -1.0, -infinity, flag_divide_by_zero},
        {"log1p_scalar", -1.5, nan, flag_invalid},
        {"log1p_scalar", -infinity, nan, flag_invalid},
        {"log1p_scalar", infinity, infinity, 0},
        {"log1p_scalar", nan, nan, 0},
    };
    for (const auto& [name, x, expected, flags] : cases) {
        for (const ScalarKernel& kernel : scalar_kernels(name)) {
            for (const Rounding rounding : all_roundings) {
                const ScalarResult result = call_scalar(kernel, x, {}, {rounding});
                if (std::isnan(expected))
                    EXPECT_TRUE(std::isnan(result.value_d())) << kernel.symbol << x;
                else
                    EXPECT_EQ(result.narrow, Argument(expected).narrow) << kernel.symbol << x;
                EXPECT_EQ(flag_names(result.flags & loud_flags), flag_names(flags)) << kernel.symbol << x;
            }
        }
    }
}

} // namespace
} // namespace zelk::test
