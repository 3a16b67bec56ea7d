// Errors and special values of scalar routines, in the 80-bit format and in binary64.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "oracle.h"
#include "scalar_call.h"

namespace zelk::test {

// The largest error of a routine over many arguments. `result` chooses what to judge: -1 the returned number,
// 0 or 1 the number stored through that pointer.
struct WorstScalar {
    double ulp = 0;
    long double x = 0;
    long double y = 0;
    long double got = 0;
    std::string text() const;
};
WorstScalar worst_error(const ScalarKernel& kernel, std::span<const long double> xs, const Unary& exact,
                        int result = -1, const Environment& environment = {});
WorstScalar worst_error(const ScalarKernel& kernel, std::span<const long double> xs,
                        std::span<const long double> ys, const Binary& exact, int result = -1,
                        const Environment& environment = {});
WorstScalar worst_error(const ScalarKernel& kernel, std::span<const double> xs, const Unary& exact,
                        const Environment& environment = {});
WorstScalar worst_error(const ScalarKernel& kernel, std::span<const double> xs, std::span<const double> ys,
                        const Binary& exact, const Environment& environment = {});
// Fails if the error is above the bound; prints what was measured in any case.
void expect_error_within(double bound_ulp, const WorstScalar& worst, const std::string& kernel,
                         const std::string& path);

// The same for a routine of one implementation by name.
void expect_errors_within(double bound_ulp, const char* name, const Unary& exact,
                          std::span<const long double> xs, const char* path, int result = -1);
// In the directed rounding modes, where one more ulp than half of one is the rounding's own.
void expect_errors_in_directed_modes(double bound_ulp, const char* name, const Unary& exact,
                                     std::span<const long double> xs, int result = -1);

// Positive numbers with exponents from..to, about evenly spread over them (2^e <= x < 2^(e+1); below -16382
// denormals): mostly random significands, some short ones and some next to a power of two.
std::vector<long double> sample_binades(int from, int to, std::size_t count, std::uint64_t seed = 1);
inline constexpr int smallest_exponent = -16445;
inline constexpr int largest_exponent = 16383;
// Uniform over an interval.
std::vector<long double> sample_interval(long double from, long double to, std::size_t count,
                                         std::uint64_t seed = 1);
// Arguments whose exact result lies about as near as can be to the midpoint of two numbers, near each of
// `results`: the midpoint's inverse image, rounded.
std::vector<long double> arguments_of_midpoints(std::span<const long double> results, const Unary& inverse);
// x and its `radius` neighbours on both sides.
std::vector<long double> neighbours(long double x, int radius);

// An argument (pair) whose result is known. A NaN expectation takes any quiet NaN; anything else is compared
// bit for bit. `flags` are the loud flags (invalid, divide-by-zero, overflow) that the call raises, no more,
// no less.
struct SpecialScalar {
    const char* name;
    Bits80 x;
    Bits80 expected;
    unsigned flags = 0;
    Bits80 y = {};
};
// In all rounding modes and all precisions.
void check_specials(const ScalarKernel& kernel, std::span<const SpecialScalar> cases, int result = -1);
// NaN, quiet without a flag, signalling and unsupported encodings with invalid: true of nearly every routine.
// For two arguments, `other` stands beside them in either place.
void check_nan_arguments(const ScalarKernel& kernel, int result = -1,
                         const Bits80& other = encoding::plus_one);

// A pseudo-denormal is the normal number with the same significand.
void check_pseudo_denormal(const ScalarKernel& kernel, int result = -1);

} // namespace zelk::test
