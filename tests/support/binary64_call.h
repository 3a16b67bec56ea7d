// Calling a scalar routine as the platform's convention for scalars says, and its errors.
#pragma once

#include "oracle.h"

namespace zelk::test {

// The tier kernels of a scalar routine of the list.
std::vector<Kernel> binary64_kernels(const std::string& name);

struct ScalarResult {
    std::uint64_t bits; // of the binary64 result
    unsigned flags;     // raised by the call, in either floating-point unit
    bool state_kept;    // x87 stack empty, rounding mode, precision and exception masks as before
    double value() const { return __builtin_bit_cast(double, bits); }
};

// The rounding mode is set in both units. The arguments are bit patterns: signalling NaNs arrive as such.
ScalarResult call_scalar(const void* routine, std::uint64_t x, Rounding rounding = Rounding::nearest);
ScalarResult call_scalar(const void* routine, std::uint64_t x, std::uint64_t y,
                         Rounding rounding = Rounding::nearest);
ScalarResult call_scalar(const void* routine, double x, Rounding rounding = Rounding::nearest);
ScalarResult call_scalar(const void* routine, double x, double y, Rounding rounding = Rounding::nearest);

// The largest error over many arguments, for a routine of one and of two arguments.
Worst worst_scalar_error(const void* routine, std::span<const double> xs, const Unary& exact,
                         Rounding rounding = Rounding::nearest);
Worst worst_scalar_error(const void* routine, std::span<const double> xs, std::span<const double> ys,
                         const Binary& exact, Rounding rounding = Rounding::nearest);

} // namespace zelk::test
