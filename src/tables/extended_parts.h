// Constants of the 80-bit functions that are computed in pieces of binary64.
#pragma once

namespace zelk::tables {

// ln2_hi (ln2) is a multiple of 2^-38, ln2_256_hi (ln2/256) of 2^-46: their products with the integers that
// the reductions multiply them by are exact. ln(1 + f) = f - f^2/2 + f^3 log1p_cubic(f) for |f| <= 0.00226.
namespace extended_parts {
#include "tables/extended_parts.inc"
} // namespace extended_parts

} // namespace zelk::tables
