// The direction of a point of the plane, for the arc tangents in radians and degrees.
// Method: the ray to the point passes next to one of 513 points that step by 1/128 along the sides x = 1,
// y = 1 and x = -1 of the square. The angle of that one comes from an exported table; the tangent of the
// angle between the two is a quotient below 2^-7.9 whose numerator is exact, by integer arithmetic on the
// significands. What is computed in floating point is so small beside the result that its roundings hardly
// show. Next to the positive x axis, where it would not be, the table gives way to a polynomial of a short
// number.
#pragma once

#include "extended/arc.h"
#include "tables/extended_trig.h"

namespace zelk::ZELK_TIER {

// A coordinate +-significand 2^(exponent - 63), the integer bit set.
struct Coordinate {
    std::uint64_t significand;
    int exponent;
    bool negative;
};
ZELK_INLINE bool is_normal(Words x)
{
    return in_binades(x, 1 - exponent_bias, exponent_bias + 1);
}
ZELK_INLINE Coordinate normal_coordinate(Words x)
{
    return {x.significand, x.biased_exponent() - exponent_bias, x.negative()};
}

// The coordinates by size: the lesser is a 2^-distance, the greater b, their significands whole numbers.
struct Sides {
    std::uint64_t a;
    std::uint64_t b;
    int distance;
    bool steep; // y is the greater
};
ZELK_INLINE Sides sides_of(const Coordinate& y, const Coordinate& x)
{
    const int difference = y.exponent - x.exponent;
    const bool steep = (difference > 0) | ((difference == 0) & (y.significand > x.significand));
    const std::uint64_t exchanged = (y.significand ^ x.significand) & -static_cast<std::uint64_t>(steep);
    return {y.significand ^ exchanged, x.significand ^ exchanged, difference < 0 ? -difference : difference,
            steep};
}

// 128 times a quotient as n + rest/b, |rest| at most b/2 and a little.
struct Quotient {
    unsigned n;
    long double rest;
};
// a 2^-shift / b, 0 <= shift <= 7.
ZELK_INLINE Quotient quotient(std::uint64_t a, std::uint64_t b, int shift)
{
    const unsigned a_head = static_cast<unsigned>(a >> 40) >> shift;
    const auto b_head = static_cast<unsigned>(b >> 40);
    const unsigned n = (a_head * 128 + b_head / 2) / b_head;
    const auto rest = static_cast<std::int64_t>((a << (7 - shift)) - n * b);
    const auto extended = from_integer(rest);
    // Next to 2^64, half of b and a little may be more than an integer holds: the estimate has the sign.
    if (b >> 50 == 0x3FFF) [[unlikely]] {
        const bool negative = static_cast<int>(a_head * 128 - n * b_head) < 0;
        const bool large = (rest >> 62) != (rest >> 63);
        if (large && negative != (rest < 0)) return {n, rest < 0 ? extended + 0x1p64L : extended - 0x1p64L};
    }
    return {n, extended};
}
// The same for a shift beyond 7. What is shifted out leaves a bit for the directed rounding modes; it is
// below 2^-70.
ZELK_INLINE Quotient far_quotient(std::uint64_t a, std::uint64_t b, int shift)
{
    const std::uint64_t scaled = a >> ((shift < 70 ? shift : 70) - 7) | 1;
    const unsigned n = scaled > b / 2;
    return {n, from_integer(static_cast<std::int64_t>(scaled - (n != 0 ? b : 0)))};
}

// The angles by unit: the table's, and an angle in radians times the factor.
template <bool in_degrees>
ZELK_INLINE const tables::HiLo& angle_of_point(unsigned point)
{
    return in_degrees ? tables::_rop_atandl_table_128[point] : tables::_rop_atanl_table_128[point];
}
template <bool in_degrees>
ZELK_INLINE long double in_unit(long double radians)
{
    if constexpr (!in_degrees) return radians;
    const auto& factor = tables::extended_trig.C180byPi;
    return radians * (factor.hi + static_cast<long double>(factor.lo));
}

// Two coordinates of which one is zero or infinite: a multiple of 45 degrees.
template <bool in_degrees>
ZELK_INLINE long double direction_of_special(Words y, Words x)
{
    const bool along_y = y.infinite() || (x.zero() && !y.zero());
    const bool along_x = x.infinite() || !along_y;
    const unsigned first = along_x && along_y ? 128 : along_y ? 256 : 0;
    const auto& angle = angle_of_point<in_degrees>(x.negative() ? 512 - first : first);
    return y.negative() ? -static_cast<long double>(angle.hi) - angle.lo
                        : static_cast<long double>(angle.hi) + angle.lo;
}

// a/b 2^-distance for a distance beyond 60, and a little less for the directed rounding modes.
template <bool in_degrees>
[[gnu::cold, gnu::noinline]] static long double quotient_as_direction(Sides sides, bool negative)
{
    Pair quotient = divide(Pair{number_of(sides.a), 0.0L}, Pair{number_of(sides.b), 0.0L});
    quotient.lo -= 0x1p-100L;
    int exponent = -sides.distance;
    if constexpr (in_degrees) {
        const auto& factor = tables::extended_trig.C180byPi;
        const Pair degrees = multiply(quotient, fast_two_sum(factor.hi, factor.lo));
        quotient = {degrees.hi * 0x1p-6L, degrees.lo * 0x1p-6L};
        exponent += 6;
    }
    return scaled_far(with_sign(negative, quotient), exponent);
}

// Up to this n, next to the positive x axis, the table gives way: to 1/8 and 8 degrees and a little, so that
// what is above has no small unit in the last place.
template <bool in_degrees>
inline constexpr unsigned last_small = in_degrees ? 18 : 16;

// Next to the positive x axis: atan c for a c of 9 bits, and the rest as everywhere.
template <bool in_degrees>
[[gnu::noinline]] static long double small_direction(Sides sides, bool negative)
{
    using namespace tables;
    if (sides.distance > 60) [[unlikely]]
        return quotient_as_direction<in_degrees>(sides, negative);
    const auto [n, rest] = quotient(sides.a, sides.b, 0);
    const auto whole = static_cast<long double>(static_cast<int>(n));
    const long double c = whole * short_power_of_two(-7 - sides.distance, negative);
    const long double b = number_of(sides.b) * short_power_of_two(7 + sides.distance, negative);
    const long double a = number_of(sides.a) * short_power_of_two(-sides.distance, negative);
    const long double t = rest / (b + whole * a);
    const long double z = c * c;
    const long double w = t * t;
    const long double curvature =
        c * z * polynomial_in_halves(atan_R, z) + t * w * polynomial_in_halves(atan_offset_R, w);
    if constexpr (!in_degrees) return c + (t + curvature);
    const auto& factor = extended_trig.C180byPi;
    return c * factor.hi + (c * factor.lo + in_unit<in_degrees>(t + curvature));
}

template <bool in_degrees>
ZELK_INLINE long double direction_of(const Coordinate& y, const Coordinate& x)
{
    using namespace tables;
    const Sides sides = sides_of(y, x);
    const auto [n, rest] = sides.distance <= 7 ? quotient(sides.a, sides.b, sides.distance)
                                               : far_quotient(sides.a, sides.b, sides.distance);
    const unsigned steep = sides.steep;
    const unsigned left = x.negative;
    if (n <= last_small<in_degrees> && (steep | left) == 0) [[unlikely]]
        return small_direction<in_degrees>(sides, y.negative);

    // With c = n/128 next to a/b, the angles of (b, a) and (1, c) differ by atan((a - c b)/(b + c a)). From
    // the diagonals on, and beyond the y axis, the angle counts backwards. (Arithmetic, since the octants of
    // many points come in no order.)
    const unsigned backwards = steep ^ left;
    const unsigned point = (steep << 8 | (left & ~steep) << 9) + ((n ^ -backwards) + backwards);
    const bool minus = (backwards != 0) != y.negative;
    // 128 a = n b + rest, so that b + c a is 2^-14 times this.
    const long double unit = short_power_of_two(-7, minus);
    const long double denominator =
        number_of(sides.b) * (unit * static_cast<int>(16384 + n * n)) + (unit * static_cast<int>(n)) * rest;
    const long double t = rest / denominator;

    const HiLo& angle = angle_of_point<in_degrees>(point);
    const long double sign = short_power_of_two(0, y.negative);
    const long double z = t * t;
    const long double offset = in_unit<in_degrees>(t);
    const long double curvature = offset * z * polynomial_in_halves(atan_offset_R, z);
    return angle.hi * sign + (offset + (curvature + angle.lo * sign));
}

// One of them is not normal.
template <bool in_degrees>
[[gnu::cold, gnu::noinline]] static long double direction_off_the_path(long double y, long double x)
{
    const Words Y = words_of(y);
    const Words X = words_of(x);
    if (not_a_number(Y) || not_a_number(X)) return y + x;
    if (Y.zero() || X.zero() || Y.infinite() || X.infinite()) return direction_of_special<in_degrees>(Y, X);
    const Normalised y_parts = normalised_finite(Y);
    const Normalised x_parts = normalised_finite(X);
    return direction_of<in_degrees>(Coordinate{y_parts.significand, y_parts.exponent, Y.negative()},
                                    Coordinate{x_parts.significand, x_parts.exponent, X.negative()});
}

// Direction of (x, y), two arguments where their caller stored them.
template <bool in_degrees>
ZELK_INLINE long double direction(const long double& y, const long double& x)
{
    const Words Y = stored_words(y);
    const Words X = stored_words(x);
    if (!is_normal(Y) || !is_normal(X)) [[unlikely]]
        return direction_off_the_path<in_degrees>(y, x);
    return direction_of<in_degrees>(normal_coordinate(Y), normal_coordinate(X));
}

} // namespace zelk::ZELK_TIER
