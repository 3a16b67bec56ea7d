// The reciprocal square root that the power shares with nobody outside the library.
#pragma once

#include "lanes/tier.h"

namespace zelk::ZELK_TIER {

// 1/sqrt *x, returned and written back. Error 0.51 ulp; special arguments as for the vector reciprocal square
// roots.
[[gnu::visibility("hidden")]] long double __invsqrtl(long double* x) asm("__invsqrtl");

} // namespace zelk::ZELK_TIER
