// The complex square root where a part is infinite or a NaN.
#pragma once

#include "complex/classes.h"
#include "complex/parts.h"

namespace zelk::ZELK_TIER {

// Real is float or double. Raises nothing but invalid, where a signalling NaN enters the result.
template <class Real>
ZELK_INLINE auto special_csqrt(Real x, Real y)
{
    const Real infinity = static_cast<Real>(__builtin_inf());
    if (is_infinite(y)) return make_complex(infinity, y); // x may be a NaN
    if (is_nan(x)) {
        const Real nan = x * y;
        return make_complex(nan, nan);
    }
    if (is_nan(y)) {
        if (!is_infinite(x)) {
            const Real nan = x * y;
            return make_complex(nan, nan);
        }
        const Real nan = y * y;
        return is_negative(x) ? make_complex(nan, infinity) : make_complex(infinity, nan);
    }
    const Real zero = 0;
    return is_negative(x) ? make_complex(zero, with_sign_of(infinity, y))
                          : make_complex(infinity, with_sign_of(zero, y));
}

} // namespace zelk::ZELK_TIER
