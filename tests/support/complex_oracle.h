// Errors and special values of complex functions, vector and scalar, each part judged on its own.
#pragma once

#include <mpc.h>

#include <complex>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "entries.h"
#include "oracle.h"
#include "scalar_call.h"

namespace zelk::test {

// An exact complex function: an MPC function.
using ComplexFunction = int (*)(mpc_ptr, mpc_srcptr, mpc_rnd_t);

// The largest errors of the two parts over many arguments, with the arguments that attain them.
struct WorstPart {
    double ulp = 0;
    double x = 0;
    double y = 0;
    double got = 0;
};
struct WorstComplex {
    std::string symbol;
    WorstPart re;
    WorstPart im;
};
// One for each kernel; the exact values are computed once for all of them.
std::vector<WorstComplex> worst_errors(std::span<const Kernel> kernels,
                                       std::span<const std::complex<float>> arguments, ComplexFunction exact,
                                       Rounding rounding = Rounding::nearest);
std::vector<WorstComplex> worst_errors(std::span<const ScalarKernel> kernels,
                                       std::span<const std::complex<float>> arguments, ComplexFunction exact,
                                       Rounding rounding = Rounding::nearest);
std::vector<WorstComplex> worst_errors(std::span<const ScalarKernel> kernels,
                                       std::span<const std::complex<double>> arguments, ComplexFunction exact,
                                       Rounding rounding = Rounding::nearest);
// Fails if an error is above its bound; prints what was measured in any case.
void expect_errors_within(double bound_re, double bound_im, std::span<const WorstComplex> worst,
                          const std::string& path);

// Numbers with the given real and imaginary parts, each sign of both; the longer list decides the count.
template <class T>
std::vector<std::complex<T>> all_quadrants(std::span<const T> re, std::span<const T> im)
{
    std::vector<std::complex<T>> list;
    for (std::size_t i = 0; i < std::max(re.size(), im.size()); ++i)
        for (const T sign_re : {T(1), T(-1)})
            for (const T sign_im : {T(1), T(-1)})
                list.emplace_back(sign_re * re[i % re.size()], sign_im * im[i % im.size()]);
    return list;
}

// A part of an argument or of a result: a number, rounded to nearest for a binary32 routine, or a NaN.
struct Part {
    enum Kind { number, quiet, signalling };
    constexpr Part(double x) : value(x) {}
    constexpr Part(Kind nan) : kind(nan) {}
    Kind kind = number;
    double value = 0;
};
inline constexpr Part nan_part{Part::quiet};
inline constexpr Part signalling_part{Part::signalling};
inline constexpr double infinity = std::numeric_limits<double>::infinity();

// An argument whose result is known. An expected NaN takes any quiet NaN; anything else is compared bit for
// bit. `flags` are the loud flags (invalid, divide-by-zero, overflow) that the call raises, no more, no less.
struct SpecialComplex {
    Part x;
    Part y;
    Part re;
    Part im;
    unsigned flags = 0;
};
// Each case in the given rounding modes and all precisions of the x87.
void check_specials(const ScalarKernel& kernel, std::span<const SpecialComplex> cases,
                    std::span<const Rounding> roundings = all_roundings);
// Each case in either number beside an ordinary one, which keeps its bits, and in both.
void check_specials(const Kernel& kernel, std::span<const SpecialComplex> cases, std::complex<float> ordinary,
                    std::span<const Rounding> roundings = all_roundings);

} // namespace zelk::test
