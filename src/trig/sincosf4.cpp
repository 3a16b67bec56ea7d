// sin x and cos x on four binary32 lanes, in registers (sincosf4), or with the cosine also stored
// (ropsSinCos4). Method: r = x - k pi/2, k = round(2/pi x); sin x and cos x are, by k mod 4, the polynomials
// of degree 7 and 8 for sin r and cos r. |x| <= 10000: pi/2 in four parts, binary32. Beyond, with the sign of
// x put back:
//   tier A       every lane as the scalar reduction takes it (trig/reduce_huge.h);
//   ropsSinCos4  a vector in which every lane is beyond and none above 2^30, in binary64; else the lanes
//                beyond as the scalar reduction takes them;
//   sincosf4     without a lane above 2^30, the lanes beyond in binary64; else from a table.
#include "tables/sincosf4.h"
#include "dispatch/kernels.h"
#include "trig/grid_pairs.h"
#include "trig/reduce_huge.h"

namespace zelk::ZELK_TIER {

using tables::Sincosf4;

// z is r^2, on the fast path formed before the last part of pi/2 is subtracted. The sine's sign is flipped by
// `sign`, the sign of x in lanes that are reduced from |x|.
struct PairReducedf4 {
    float4 r;
    float4 z;
    int4 quadrant;
    int4 sign;
};

struct SineCosinef4 {
    float4 sine;
    float4 cosine;
};

ZELK_INLINE float4 magnitude_of(float4 x, const Sincosf4& k)
{
    return as_float4(as_int4(x) & k.MMIABSMASK);
}

ZELK_INLINE int4 beyond_fast_path(float4 x, const Sincosf4& k)
{
    return (as_int4(x) & k.MMIABSMASK) > k.MMIHUGE;
}

ZELK_INLINE PairReducedf4 reduce_fast(float4 x, const Sincosf4& k)
{
    const float4 u = x * k.MMSINVPI + k.MMSRSHIFT; // the low bits hold k
    const float4 kf = u - k.MMSRSHIFT;
    // |kf| < 2^13: the products with the first three parts are exact.
    const float4 r3 = ((x - kf * k.MMSPI1) - kf * k.MMSPI2) - kf * k.MMSPI3;
    return {r3 - kf * k.MMSPI4, r3 * r3, as_int4(u), int4{}};
}

// quadrant 0: sin x = sin r, cos x = cos r; 1: cos r, -sin r; 2: -sin r, -cos r; 3: -cos r, sin r.
ZELK_INLINE SineCosinef4 evaluate(const PairReducedf4& reduced, const Sincosf4& k)
{
    const float4 r = reduced.r;
    const float4 z = reduced.z;
    const float4 PS = (((k.MMSA3 * z + k.MMSA2) * z + k.MMSA1) * z) * r + r;
    const float4 PC = (((k.MMSB4 * z + k.MMSB3) * z + k.MMSB2) * z + k.MMSB1) * z + k.MMSB0;

    const int4 parity = reduced.quadrant & k.MMIPARMASK;
    const int4 odd = -parity;
    const int4 sine_sign = ((reduced.quadrant & k.MMITWOMASK) << 30) ^ reduced.sign;
    const int4 cosine_sign = ((reduced.quadrant + parity) & k.MMITWOMASK) << 30;
    return {as_float4(as_int4(select(odd, PC, PS)) ^ sine_sign),
            as_float4(as_int4(select(odd, PS, PC)) ^ cosine_sign)};
}

// The lanes of `lanes` are reduced from |x|; the others are those of the fast path.
ZELK_INLINE PairReducedf4 merge(float4 x, int4 lanes, const QuadrantReducedf4& reduced, float4 other_squares,
                                const Sincosf4& k)
{
    return {reduced.r, select(lanes, reduced.r * reduced.r, other_squares), reduced.quadrant,
            as_int4(x) & k.MMISIGNMASK & lanes};
}

// Lanes above 2^30, infinite or NaN.
ZELK_INLINE unsigned huge_lanes(float4 x, const Sincosf4& k)
{
    return lane_mask((as_int4(x) & k.MMIABSMASK) > k.flTwoPow30);
}

// Lanes that the fast path cannot take pass through it as zeros: they must not raise anything there.
ZELK_INLINE PairReducedf4 reduce_ordinary(float4 x, int4 beyond, const Sincosf4& k)
{
    return reduce_fast(as_float4(as_int4(x) & ~beyond), k);
}

// Every lane reduced from |x|.
ZELK_INLINE SineCosinef4 evaluate_reduced(float4 x, const QuadrantReducedf4& reduced, const Sincosf4& k)
{
    return evaluate({reduced.r, reduced.r * reduced.r, reduced.quadrant, as_int4(x) & k.MMISIGNMASK}, k);
}

ZELK_INLINE SineCosinef4 every_lane_through_reduction(float4 x, const Sincosf4& k)
{
    return evaluate_reduced(x, reduce_every_lane(magnitude_of(x, k)), k);
}

ZELK_INLINE SineCosinef4 lanes_through_reduction(float4 x, int4 beyond, const Sincosf4& k)
{
    if (lane_mask(beyond) == all_lanes4 && huge_lanes(x, k) == 0)
        return evaluate_reduced(x, reduce_medium(magnitude_of(x, k)), k);
    const PairReducedf4 ordinary = reduce_ordinary(x, beyond, k);
    const QuadrantReducedf4 reduced =
        reduce_lanes(magnitude_of(x, k), beyond, {ordinary.r, ordinary.quadrant});
    return evaluate(merge(x, beyond, reduced, ordinary.z, k), k);
}

// sin(theta + phi) and cos(theta + phi), theta = n pi/128 and phi = f pi/128.
struct SineCosine2 {
    double2 sine;
    double2 cosine;
};
ZELK_INLINE SineCosine2 evaluate_on_grid(const Half& half)
{
    const auto& k = tables::__spec_table_sincosf;
    const GridPoint2 point = reduce_to_grid(half.X, half.chunk, tables::inverse_pi_chunks_512);
    const auto [entry, bit_6, bit_7] = mirror(point.n);
    const auto [c, s_bits] = load_rows(k.grid, entry);
    const double2 s = as_double2(s_bits ^ bit_7);
    const double2 cj = as_double2(c ^ bit_7 ^ bit_6);

    const double2 f2 = point.f * point.f;
    const double2 u = point.f * k.pi_128;
    const double2 Pa = 1.0 + f2 * k.sine_2;
    const double2 Pb = 1.0 + f2 * k.cosine_2;
    return {s * Pb + cj * u * Pa, cj * Pb - s * u * Pa};
}

ZELK_INLINE SineCosinef4 select(int4 mask, const SineCosinef4& a, const SineCosinef4& b)
{
    return {select(mask, a.sine, b.sine), select(mask, a.cosine, b.cosine)};
}

ZELK_INLINE SineCosinef4 lanes_through_table(float4 x, int4 beyond, const Sincosf4& k)
{
    SineCosinef4 result = {};
    if (lane_mask(beyond) != all_lanes4) result = evaluate(reduce_ordinary(x, beyond, k), k);
    const int4 no_number = no_numbers(x);
    const float4 nan = quiet_nans(x, no_number);
    result = select(no_number, {nan, nan}, result);
    const int4 numbers = beyond & ~no_number;
    if (lane_mask(numbers) == 0) return result;

    const float4 number = as_float4(as_int4(x) & numbers);
    const int4 chunk = chunk_rows(number);
    const SineCosine2 low = evaluate_on_grid(low_half(number, chunk));
    const SineCosine2 high = evaluate_on_grid(high_half(number, chunk));
    return select(numbers, {narrow(low.sine, high.sine), narrow(low.cosine, high.cosine)}, result);
}

ZELK_INLINE SineCosinef4 lanes_in_binary64(float4 x, int4 beyond, const Sincosf4& k)
{
    const PairReducedf4 ordinary = reduce_ordinary(x, beyond, k);
    const QuadrantReducedf4 medium = reduce_medium(magnitude_of(x, k));
    const QuadrantReducedf4 reduced = {select(beyond, medium.r, ordinary.r),
                                       select(beyond, medium.quadrant, ordinary.quadrant)};
    // Ordinary lanes square the full r here, unlike the fast path.
    return evaluate(merge(x, beyond, reduced, reduced.r * reduced.r, k), k);
}

// Lanes of `beyond` have |x| > 10000, or are infinite or NaN.
[[gnu::noinline, gnu::cold]] static float4 spec_ssincos4(float4 x, int4 beyond)
{
    const auto& k = tables::sincosf4;
    SineCosinef4 result;
    if constexpr (tier == Tier::A)
        result = every_lane_through_reduction(x, k);
    else if (huge_lanes(x, k) == 0)
        result = lanes_in_binary64(x, beyond, k);
    else
        result = lanes_through_table(x, beyond, k);
    return both(result.sine, result.cosine);
}

[[gnu::noinline, gnu::cold]] static float4 spec_ropsSinCos4(float4 x, int4 beyond, float4* cosine)
{
    const auto& k = tables::sincosf4;
    const SineCosinef4 result =
        tier == Tier::A ? every_lane_through_reduction(x, k) : lanes_through_reduction(x, beyond, k);
    *cosine = result.cosine;
    return both(result.sine, result.cosine);
}

float4 sincosf4(float4 x)
{
    const auto& k = tables::sincosf4;
    const int4 beyond = beyond_fast_path(x, k);
    if (lane_mask(beyond) != 0) [[unlikely]]
        return spec_ssincos4(x, beyond); // leaves both results in their registers
    const SineCosinef4 result = evaluate(reduce_fast(x, k), k);
    return both(result.sine, result.cosine);
}

float4 ropsSinCos4(float4 x, float4* cosine)
{
    const auto& k = tables::sincosf4;
    const int4 beyond = beyond_fast_path(x, k);
    if (lane_mask(beyond) != 0) [[unlikely]]
        return spec_ropsSinCos4(x, beyond, cosine);
    const SineCosinef4 result = evaluate(reduce_fast(x, k), k);
    *cosine = result.cosine;
    return both(result.sine, result.cosine);
}

} // namespace zelk::ZELK_TIER
