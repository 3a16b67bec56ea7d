// The direction of a point of the plane, for the arc functions in radians and degrees.
// Method: the ray to the point passes next to one of 513 points that step by 1/128 along the sides x = 1,
// y = 1 and x = -1 of the square. The angle of that one comes from an exported table; the angle between the
// two is the arc tangent of a number below 2^-7.9, carried as a pair.
#pragma once

#include "extended/arithmetic.h"
#include "tables/extended_trig.h"

namespace zelk::ZELK_TIER {

// The angle of the point of the tables and offset 2^exponent radians. The exponent is not zero only where the
// point is the first, of angle 0.
struct Direction {
    unsigned point;
    Pair offset;
    int exponent;
};

// atan(numerator/denominator) for a quotient of magnitude below 2^-7.9. The pair's lo is not yet rounded.
ZELK_INLINE Pair small_arc_tangent(Pair numerator, Pair denominator)
{
    const auto& k = tables::extended_trig;
    const Pair t = divide(numerator, denominator);
    const long double z = t.hi * t.hi;
    const long double curvature =
        t.hi * z * (k.arc_tangent_3 + z * (k.arc_tangent_5 + z * (k.arc_tangent_7 + z * k.arc_tangent_9)));
    return {t.hi, t.lo + curvature};
}

// Direction of (x, y) or, if x_negative, (-x, y); x, y >= 0, not both 0, within 2^1000 and not far below 1.
ZELK_INLINE Direction direction_of(Pair y, Pair x, bool x_negative)
{
    const bool steep = y.hi > x.hi;
    const Pair a = steep ? x : y;
    const Pair b = steep ? y : x;
    // With c = j/128 next to a/b, the angles of (b, a) and (1, c) differ by atan((a - c b)/(b + c a)).
    const unsigned j = grid_index(a.hi / b.hi, 7);
    const long double c = static_cast<long double>(static_cast<int>(j)) * 0x1p-7L;
    const Pair parts = split(b.hi); // whose products with c are exact
    const Pair numerator = add(a, Pair{-(c * parts.hi), -(c * parts.lo + c * b.lo)});
    Pair denominator = fast_two_sum(b.hi, c * a.hi);
    denominator.lo += b.lo + c * a.lo;
    const Pair offset = small_arc_tangent(numerator, denominator);
    // From the diagonals on, and beyond the y axis, the angle counts backwards.
    const unsigned point = steep ? (x_negative ? 256 + j : 256 - j) : (x_negative ? 512 - j : j);
    return {point, with_sign(steep != x_negative, offset), 0};
}

// Direction of (x, |y|) where one of them is zero or infinite: a multiple of 45 degrees.
[[maybe_unused, gnu::cold, gnu::noinline]] static Direction direction_of_special(Words y, Words x)
{
    const bool along_y = y.infinite() || (x.zero() && !y.zero());
    const bool along_x = x.infinite() || !along_y;
    const unsigned point = along_x && along_y ? 128 : along_y ? 256 : 0;
    return {x.negative() ? 512 - point : point, {0.0L, 0.0L}, 0};
}

// Direction of (x, |y|) for any two numbers.
ZELK_INLINE Direction direction_of(Words y, Words x)
{
    if (y.zero() || x.zero() || y.infinite() || x.infinite()) [[unlikely]]
        return direction_of_special(y, x);
    const Normalised Y = normalised_finite(y);
    const Normalised X = normalised_finite(x);
    const int distance = Y.exponent - X.exponent;
    if (distance < -70 && !x.negative()) [[unlikely]] {
        // y/x, and a little less for the directed rounding modes.
        const Pair quotient = divide(Pair{number_of(Y.significand, exponent_bias), 0.0L},
                                     Pair{number_of(X.significand, exponent_bias), 0.0L});
        return {0, {quotient.hi, quotient.lo - 0x1p-100L}, distance};
    }
    // The greater one's exponent becomes 0, the other's no less than -70.
    const int y_exponent = distance > 0 ? 0 : distance < -70 ? -70 : distance;
    const int x_exponent = distance < 0 ? 0 : distance > 70 ? -70 : -distance;
    return direction_of(Pair{number_of(Y.significand, exponent_bias + y_exponent), 0.0L},
                        Pair{number_of(X.significand, exponent_bias + x_exponent), 0.0L}, x.negative());
}

// The angle of a direction, negated or not, rounded.
ZELK_INLINE long double angle_of(const tables::HiLo& point, Pair offset, bool negative)
{
    const Pair sum = fast_two_sum(point.hi, offset.hi);
    const long double lo = sum.lo + (point.lo + offset.lo);
    return negative ? -sum.hi - lo : sum.hi + lo;
}
ZELK_INLINE long double radians(const Direction& direction, bool negative)
{
    if (direction.exponent != 0) [[unlikely]]
        return scaled_far(with_sign(negative, direction.offset), direction.exponent);
    return angle_of(tables::_rop_atanl_table_128[direction.point], direction.offset, negative);
}
ZELK_INLINE long double degrees(const Direction& direction, bool negative)
{
    const auto& factor = tables::extended_trig.C180byPi;
    Pair offset = direction.offset;
    if (offset.hi != 0) // a product of zero may be -0
        offset = multiply(fast_two_sum(offset.hi, offset.lo), Pair{factor.hi, factor.lo});
    if (direction.exponent != 0) [[unlikely]]
        return scaled_far(with_sign(negative, {offset.hi * 0x1p-6L, offset.lo * 0x1p-6L}),
                          direction.exponent + 6);
    return angle_of(tables::_rop_atandl_table_128[direction.point], offset, negative);
}

// sqrt(1 - x^2), 0 <= x < 1.
ZELK_INLINE Pair complement(long double x)
{
    const Pair square = two_product(x, x);
    const Pair difference = fast_two_sum(1.0L, -square.hi);
    return square_root(fast_two_sum(difference.hi, difference.lo - square.lo));
}

} // namespace zelk::ZELK_TIER
