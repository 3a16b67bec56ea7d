// What the complex arc cosines of both precisions share: the main case in the working precision, and the rows
// for infinite parts and NaNs.
#pragma once

#include "complex/classes.h"
#include "complex/parts.h"

namespace zelk::ZELK_TIER {

// arccos z = angle - i modulus, 0 <= angle <= pi/2 and modulus >= 0 for z in the first quadrant.
template <class Working>
struct AngleAndModulus {
    Working angle;
    Working modulus;
};

// X = |x| and Y = |y|, finite and not zero. With the distances R and S to -1 and +1, A = (R + S)/2 and B =
// X/A: arccos z = arccos B - i arcosh A. Next to +-1 and to the real axis B and A say too little of z: beyond
// the crossovers sqrt(A^2 - X^2) and A - 1 are formed from sums of positive terms. Functions gives the
// working precision's square_root, arccosine, arctangent2, logarithm, logarithm1p and Bcross.
template <class Functions, class Working>
ZELK_INLINE AngleAndModulus<Working> first_quadrant(Working X, Working Y)
{
    constexpr Working one = 1;
    constexpr Working half = 0.5;
    constexpr Working __Across = 1.5;
    const Working xm1 = X - one;
    const Working xp1 = X + one;
    const Working y2 = Y * Y;
    const Working R = Functions::square_root(xp1 * xp1 + y2);
    const Working S = Functions::square_root(xm1 * xm1 + y2);
    const Working A = (R + S) * half;
    const Working d = S == xm1 ? Y : S - xm1;

    AngleAndModulus<Working> result;
    if (X < Functions::__Bcross * A) {
        result.angle = Functions::arccosine(X / A);
    } else if (X > one) {
        const Working t = Functions::square_root(((X + A) / (xp1 + R) + (X + A) / (xm1 + S)) * half);
        result.angle = Functions::arctangent2(Y * t, X);
    } else {
        const Working u = Functions::square_root((X + A) * half * (y2 / (xp1 + R) + d));
        result.angle = Functions::arctangent2(u, X);
    }

    if (A > __Across) {
        result.modulus = Functions::logarithm(A + Functions::square_root(A * A - one));
    } else {
        const Working am = X >= one ? xm1 + S : y2 / d;
        const Working am1 = (am + y2 / (xp1 + R)) * half; // A - 1
        result.modulus = Functions::logarithm1p(am1 + Functions::square_root((A + one) * am1));
    }
    return result;
}

// Multiples of pi/4 in the result's format.
template <class Real>
struct Quarters {
    Real pi_4;
    Real pi_2;
    Real pi3_4;
    Real pi;
};

// A part is infinite or a NaN, x is not zero. Real is float or double. Raises nothing but invalid, for a
// signalling NaN.
template <class Real>
ZELK_INLINE auto special_cacos(Real x, Real y, const Quarters<Real>& k)
{
    const Real infinity = static_cast<Real>(__builtin_inf());
    if (is_nan(x)) {
        const Real quiet = x + x;
        if (is_infinite(y)) return make_complex(quiet, -y);
        return make_complex(quiet * quiet, is_nan(y) ? y * y : quiet * quiet);
    }
    if (is_nan(y)) return make_complex(y * y, is_infinite(x) ? infinity : y * y);
    const Real im = with_sign_of(infinity, -y);
    if (is_finite(x)) return make_complex(k.pi_2, im);
    if (is_infinite(y)) return make_complex(is_negative(x) ? k.pi3_4 : k.pi_4, im);
    return make_complex(is_negative(x) ? k.pi : Real(0), im);
}

} // namespace zelk::ZELK_TIER
