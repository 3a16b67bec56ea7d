// Polynomials of the 80-bit arc functions.
#pragma once

#include "tables/wide.h"

namespace zelk::tables {

// atan x = x + x^3 R(x^2): atan_R to 0.145, atan_offset_R to 2^-7.9. asin x likewise: asin_R to 2^-2.5,
// asin_offset_R to 2^-7.45.
#include "tables/extended_arc.inc"

} // namespace zelk::tables
