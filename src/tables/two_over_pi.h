// The binary expansion of 2/pi for exact reductions of binary64 arguments.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

// Word i has the weight 2^(-32 (i-1)): two words of zeros, 39 words of 2/pi, three words of zeros.
using TwoOverPi = std::uint32_t[44];
ZELK_TABLE TwoOverPi two_over_pi;

} // namespace zelk::tables
