// Exact values from MPFR, and errors against them.
//
// The error of a result is |got - exact| over the ulp of the binade that holds the exact value; below the
// smallest normal number the ulp is that of the subnormals. A NaN, an infinity or a zero's sign that differs
// from the exact result's counts as an infinite error.
#pragma once

#include <mpfr.h>

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "call.h"
#include "entries.h"
#include "exact.h"

namespace zelk::test {

// The exact function: an MPFR function, or anything with its signature.
using Unary = std::function<void(mpfr_ptr, mpfr_srcptr)>;
using Binary = std::function<void(mpfr_ptr, mpfr_srcptr, mpfr_srcptr)>;

Unary mpfr_unary(int (*function)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t));
Binary mpfr_binary(int (*function)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t));

double ulp_error(float got, mpfr_srcptr exact);
double ulp_error(double got, mpfr_srcptr exact);
double ulp_error(long double got, mpfr_srcptr exact);

// The largest error of a kernel over many arguments, all lanes used. In directed rounding modes a result on
// the wrong side counts like any other.
struct Worst {
    double ulp = 0;
    double x = 0;
    double y = 0;
    double got = 0;
    Rounding rounding = Rounding::nearest;
    std::string text() const;
};
Worst worst_error(const void* kernel, std::span<const float> xs, const Unary& exact,
                  Rounding rounding = Rounding::nearest);
Worst worst_error(const void* kernel, std::span<const double> xs, const Unary& exact,
                  Rounding rounding = Rounding::nearest);
Worst worst_error(const void* kernel, std::span<const float> xs, std::span<const float> ys,
                  const Binary& exact);
Worst worst_error(const void* kernel, std::span<const double> xs, std::span<const double> ys,
                  const Binary& exact);
// The same for the second result of a two-result kernel.
Worst worst_error_second(const void* kernel, std::span<const float> xs, const Unary& exact);
Worst worst_error_second(const void* kernel, std::span<const double> xs, const Unary& exact);

// The largest |got - exact| in any rounding mode, of the first or the second result.
double worst_absolute_error(const void* kernel, std::span<const float> xs, const Unary& exact,
                            Rounding rounding, bool second = false);
double worst_absolute_error(const void* kernel, std::span<const double> xs, const Unary& exact,
                            Rounding rounding, bool second = false);

// Fails if the error is above the bound; prints what was measured in any case. Kernels that loop over the
// lanes in 80 bits have a bound of their own: that of one rounding.
void expect_error_within(double bound_ulp, const Worst& worst, const std::string& kernel,
                         const std::string& path);
// The same for the three directed rounding modes together.
void expect_directed_error_within(double bound_ulp, const Kernel& kernel, std::span<const float> xs,
                                  const Unary& exact);
void expect_directed_error_within(double bound_ulp, const Kernel& kernel, std::span<const double> xs,
                                  const Unary& exact);

// Arguments, from reproducible sequences. The environment variable ZELK_SURVEY multiplies the counts, for
// a measurement that takes longer than a test should.
std::size_t scaled(std::size_t count); // by ZELK_SURVEY
// Uniform over the representable numbers between two of the same sign (uniform in the bit pattern).
std::vector<float> sample_patterns(float from, float to, std::size_t count, std::uint64_t seed = 1);
std::vector<double> sample_patterns(double from, double to, std::size_t count, std::uint64_t seed = 1);
// Uniform over an interval.
std::vector<float> sample_interval(float from, float to, std::size_t count, std::uint64_t seed = 1);
std::vector<double> sample_interval(double from, double to, std::size_t count, std::uint64_t seed = 1);
// x and its `radius` neighbours on both sides.
std::vector<float> neighbours(float x, int radius);
std::vector<double> neighbours(double x, int radius);

template <class T>
std::vector<T> joined(std::vector<T> a, const std::vector<T>& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}
template <class T>
std::vector<T> with_negatives(std::vector<T> a)
{
    const std::size_t count = a.size();
    for (std::size_t i = 0; i < count; ++i)
        a.push_back(-a[i]);
    return a;
}

} // namespace zelk::test
