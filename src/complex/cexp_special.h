// The complex exponential where the imaginary part is infinite or a NaN.
#pragma once

#include "complex/classes.h"
#include "complex/parts.h"

namespace zelk::ZELK_TIER {

// Real is float or double. Raises invalid for a signalling NaN, and for infinite y beside finite x.
template <class Real>
ZELK_INLINE auto cexp_of_special_angle(Real x, Real y)
{
    if (is_nan(x)) {
        const Real nan = x * x;
        return make_complex(nan, y * nan);
    }
    if (is_finite(x)) {
        const Real nan = opaque(y) - y; // the sine of infinity
        return make_complex(nan, nan);
    }
    const Real infinity = opaque(y * y); // or the NaN, quieted
    if (is_negative(x)) return make_complex(Real(0), Real(0));
    return make_complex(x, is_nan(infinity) ? infinity : static_cast<Real>(__builtin_nan("")));
}

} // namespace zelk::ZELK_TIER
