// The complex logarithm where a part is a NaN.
#pragma once

#include "complex/classes.h"
#include "complex/parts.h"

namespace zelk::ZELK_TIER {

// Real is float or double. Raises nothing but invalid, for a signalling NaN.
template <class Real>
ZELK_INLINE auto clog_of_nan(Real x, Real y)
{
    if (is_nan(x)) {
        const Real im = x * x;
        return make_complex(is_infinite(y) ? y * y : y * x, im);
    }
    const Real im = y * y;
    return make_complex(is_infinite(x) ? x * x : im, im);
}

} // namespace zelk::ZELK_TIER
