// Constants of the 80-bit exponential, logarithms and hyperbolic functions.
#pragma once

#include "tables/wide.h"

namespace zelk::tables {

// ln2_256_hi (ln2/256) is a multiple of 2^-50, ln2_hi of 2^-49: their products with the integers that the
// reductions multiply them by are exact. ln(1 + f) = f - f^2/2 + f^3/3 + f^4 log1p_R(f) for |f| <= 0.00226.
// f(x) = x + x^3 P(x^2): tanh for |x| <= 1/8, asinh and atanh for |x| <= 1/16.
#include "tables/extended_explog.inc"

} // namespace zelk::tables
