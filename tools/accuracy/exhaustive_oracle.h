// Exact results for runs of neighbouring binary32 arguments, cheaply enough for all 2^32 of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "functions.h"

namespace zelk::accuracy {

// The results of one run of arguments, in binary64 with an error that is known.
//
// A run is cut into pieces until on each the function is followed by its interpolation polynomial in 12
// Chebyshev nodes, whose values come from MPFR. The coefficients of a function that is smooth on a piece fall
// off at least geometrically, and a piece is accepted when the last three are below 2^-46 of all together;
// eight times their sum then bounds what was cut off, 2^-50 of all the rounding errors of the evaluation.
// Each piece is checked against MPFR at both ends and at three places within: a value outside the bound ends
// the program. Sine, cosine and tangent of large arguments come from those of a start and those of the steps
// from it by the addition theorems, within 2^-50. The rounding functions have steps, found by bisection.
//
// A result is undecided where the bound is not small against its ulp: next to zeros, at poles and where no
// piece is smooth. These are left to MPFR.
class RunOracle {
public:
    explicit RunOracle(const Function& function, unsigned which) : function_(function), which_(which) {}

    // Arguments with the patterns from first on; a power of two of them, aligned to their number, no NaN.
    void compute(std::uint32_t first, std::size_t count);

    struct Value {
        double value;  // a zero stands for itself, or for everything below 2^-1000
        double margin; // on both sides; negative: undecided
    };
    const std::vector<Value>& values() const { return values_; }
    // The value of one argument from MPFR.
    Reference reference(std::uint32_t pattern) const;

private:
    void compute_piece(std::uint32_t first, std::size_t count, Value* out);
    bool interpolate(std::uint32_t first, std::size_t count, Value* out) const;
    bool follow_steps(std::uint32_t first, std::size_t count, Value* out) const;
    bool step_from_start(std::uint32_t first, std::size_t count, Value* out) const;
    void evaluate(mpfr_ptr result, mpfr_srcptr x) const;

    const Function& function_;
    unsigned which_; // first or second result
    std::vector<Value> values_;
};

} // namespace zelk::accuracy
