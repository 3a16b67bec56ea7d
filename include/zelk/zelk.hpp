// libzelk for C++17: function objects on the lane vectors, named after <cmath>, and functions over arrays.
//
//     zelk::float4 y = zelk::sin(x);                  // four binary32 lanes
//     zelk::double2 z = zelk::exp2(w);                // 2^w on two binary64 lanes
//     auto [s, c] = zelk::sincos(x);
//     zelk::float4 l = zelk::log(x, mask);            // active lanes only
//     zelk::apply(zelk::sin, input, output);          // contiguous ranges of any length
//     zelk::cfloat2 e = zelk::exp(z);                 // two complex numbers: exp, log, sqrt, acos
//
// Every function takes the lane vectors and, as a last argument, an optional lane mask; what it computes,
// errors and special arguments stand with the C declaration it names. Names here go by the mathematics, not
// by the C spelling: zelk::exp2 on double2 is __zelk_exp22, and __zelk_exp2 is zelk::exp. There is no
// zelk::hypot and no zelk::erfinv: the C entries of these names compute x + y and x + x.
#pragma once

#include "zelk/zelk.h"

#include <complex>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <type_traits>

namespace zelk {

using float4 = zelk_float4;
using double2 = zelk_double2;
// Two complex numbers; as an intrinsic type the same as four floats.
struct cfloat2 {
    zelk_cfloat2 v;
};
// Signed and unsigned lanes share one intrinsic type; these tell them apart.
struct int4 {
    zelk_int4 v;
};
struct uint4 {
    zelk_uint4 v;
};

// Two results of one call.
struct float4_pair {
    float4 first, second;
};
struct double2_pair {
    double2 first, second;
};
struct int4_pair {
    int4 first, second;
};
struct uint4_pair {
    uint4 first, second;
};

namespace detail {

template <float4 (*f4)(float4), float4 (*f4_mask)(float4, float4), double2 (*d2)(double2),
          double2 (*d2_mask)(double2, double2)>
struct Unary {
    static constexpr int arguments = 1;
    static constexpr int results = 1;
    float4 operator()(float4 x) const noexcept { return f4(x); }
    double2 operator()(double2 x) const noexcept { return d2(x); }
    float4 operator()(float4 x, float4 mask) const noexcept { return f4_mask(x, mask); }
    double2 operator()(double2 x, double2 mask) const noexcept { return d2_mask(x, mask); }
};

// A function of complex numbers too, with a mask of four lanes: real and imaginary parts separately.
template <class Real, zelk_cfloat2 (*c2)(zelk_cfloat2), zelk_cfloat2 (*c2_mask)(zelk_cfloat2, float4)>
struct UnaryComplex : Real {
    using Real::operator();
    cfloat2 operator()(cfloat2 z) const noexcept { return {c2(z.v)}; }
    cfloat2 operator()(cfloat2 z, float4 mask) const noexcept { return {c2_mask(z.v, mask)}; }
};

template <float4 (*f4)(float4, float4), float4 (*f4_mask)(float4, float4, float4),
          double2 (*d2)(double2, double2), double2 (*d2_mask)(double2, double2, double2)>
struct Binary {
    static constexpr int arguments = 2;
    static constexpr int results = 1;
    float4 operator()(float4 x, float4 y) const noexcept { return f4(x, y); }
    double2 operator()(double2 x, double2 y) const noexcept { return d2(x, y); }
    float4 operator()(float4 x, float4 y, float4 mask) const noexcept { return f4_mask(x, y, mask); }
    double2 operator()(double2 x, double2 y, double2 mask) const noexcept { return d2_mask(x, y, mask); }
};

struct SinCos {
    static constexpr int arguments = 1;
    static constexpr int results = 2;
    float4_pair operator()(float4 x) const noexcept
    {
        float4_pair r;
        r.first = zelk_sincosf4(x, &r.second);
        return r;
    }
    double2_pair operator()(double2 x) const noexcept
    {
        double2_pair r;
        r.first = zelk_sincos2(x, &r.second);
        return r;
    }
    float4_pair operator()(float4 x, float4 mask) const noexcept
    {
        float4_pair r;
        r.first = zelk_sincosf4_mask(x, mask, &r.second);
        return r;
    }
    double2_pair operator()(double2 x, double2 mask) const noexcept
    {
        double2_pair r;
        r.first = zelk_sincos2_mask(x, mask, &r.second);
        return r;
    }
};

using IntegerEntry = __m128i (*)(__m128i, __m128i);
using MaskedIntegerEntry = __m128i (*)(__m128i, __m128i, __m128i);

// The mask of an unsigned division is an int4, too.
template <IntegerEntry i4, MaskedIntegerEntry i4_mask, IntegerEntry u4, MaskedIntegerEntry u4_mask>
struct IntegerBinary {
    static constexpr int arguments = 2;
    static constexpr int results = 1;
    int4 operator()(int4 a, int4 b) const noexcept { return {i4(a.v, b.v)}; }
    uint4 operator()(uint4 a, uint4 b) const noexcept { return {u4(a.v, b.v)}; }
    int4 operator()(int4 a, int4 b, int4 mask) const noexcept { return {i4_mask(a.v, b.v, mask.v)}; }
    uint4 operator()(uint4 a, uint4 b, int4 mask) const noexcept { return {u4_mask(a.v, b.v, mask.v)}; }
};

struct DivRem {
    static constexpr int arguments = 2;
    static constexpr int results = 2;
    int4_pair operator()(int4 a, int4 b) const noexcept
    {
        int4_pair r;
        r.first.v = zelk_idivrem4(a.v, b.v, &r.second.v);
        return r;
    }
    uint4_pair operator()(uint4 a, uint4 b) const noexcept
    {
        uint4_pair r;
        r.first.v = zelk_udivrem4(a.v, b.v, &r.second.v);
        return r;
    }
    int4_pair operator()(int4 a, int4 b, int4 mask) const noexcept
    {
        int4_pair r;
        r.first.v = zelk_idivrem4_mask(a.v, b.v, mask.v, &r.second.v);
        return r;
    }
    uint4_pair operator()(uint4 a, uint4 b, int4 mask) const noexcept
    {
        uint4_pair r;
        r.first.v = zelk_udivrem4_mask(a.v, b.v, mask.v, &r.second.v);
        return r;
    }
};

} // namespace detail

// clang-format off

inline constexpr detail::Unary<__zelk_sinf4, __zelk_sinf4_mask, __zelk_sin2, __zelk_sin2_mask> sin{};
inline constexpr detail::Unary<__zelk_cosf4, __zelk_cosf4_mask, __zelk_cos2, __zelk_cos2_mask> cos{};
inline constexpr detail::Unary<__zelk_tanf4, __zelk_tanf4_mask, __zelk_tan2, __zelk_tan2_mask> tan{};
// The sine first, then the cosine.
inline constexpr detail::SinCos sincos{};

inline constexpr detail::UnaryComplex<detail::Unary<__zelk_expf4, __zelk_expf4_mask, __zelk_exp2, __zelk_exp2_mask>,
                                      __zelk_cexpf2, __zelk_cexpf2_mask> exp{};
inline constexpr detail::Unary<__zelk_exp2f4, __zelk_exp2f4_mask, __zelk_exp22, __zelk_exp22_mask> exp2{};
inline constexpr detail::UnaryComplex<detail::Unary<__zelk_logf4, __zelk_logf4_mask, __zelk_log2, __zelk_log2_mask>,
                                      __zelk_clogf2, __zelk_clogf2_mask> log{};
inline constexpr detail::Unary<__zelk_log2f4, __zelk_log2f4_mask, __zelk_log22, __zelk_log22_mask> log2{};
inline constexpr detail::Unary<__zelk_log10f4, __zelk_log10f4_mask, __zelk_log102, __zelk_log102_mask> log10{};
// pow(base, exponent)
inline constexpr detail::Binary<__zelk_powf4, __zelk_powf4_mask, __zelk_pow2, __zelk_pow2_mask> pow{};

inline constexpr detail::Unary<__zelk_asinf4, __zelk_asinf4_mask, __zelk_asin2, __zelk_asin2_mask> asin{};
inline constexpr detail::UnaryComplex<detail::Unary<__zelk_acosf4, __zelk_acosf4_mask, __zelk_acos2, __zelk_acos2_mask>,
                                      __zelk_cacosf2, __zelk_cacosf2_mask> acos{};
inline constexpr detail::Unary<__zelk_atanf4, __zelk_atanf4_mask, __zelk_atan2, __zelk_atan2_mask> atan{};
// atan2(y, x)
inline constexpr detail::Binary<__zelk_atan2f4, __zelk_atan2f4_mask, __zelk_atan22, __zelk_atan22_mask> atan2{};

inline constexpr detail::Unary<__zelk_sinhf4, __zelk_sinhf4_mask, __zelk_sinh2, __zelk_sinh2_mask> sinh{};
inline constexpr detail::Unary<__zelk_coshf4, __zelk_coshf4_mask, __zelk_cosh2, __zelk_cosh2_mask> cosh{};
inline constexpr detail::Unary<__zelk_tanhf4, __zelk_tanhf4_mask, __zelk_tanh2, __zelk_tanh2_mask> tanh{};
inline constexpr detail::Unary<__zelk_asinhf4, __zelk_asinhf4_mask, __zelk_asinh2, __zelk_asinh2_mask> asinh{};
inline constexpr detail::Unary<__zelk_acoshf4, __zelk_acoshf4_mask, __zelk_acosh2, __zelk_acosh2_mask> acosh{};
inline constexpr detail::Unary<__zelk_atanhf4, __zelk_atanhf4_mask, __zelk_atanh2, __zelk_atanh2_mask> atanh{};

inline constexpr detail::UnaryComplex<detail::Unary<__zelk_sqrtf4, __zelk_sqrtf4_mask, __zelk_sqrt2, __zelk_sqrt2_mask>,
                                      __zelk_csqrtf2, __zelk_csqrtf2_mask> sqrt{};
inline constexpr detail::Unary<__zelk_cbrtf4, __zelk_cbrtf4_mask, __zelk_cbrt2, __zelk_cbrt2_mask> cbrt{};
// Reciprocals of the square root and of the cube root.
inline constexpr detail::Unary<__zelk_invsqrtf4, __zelk_invsqrtf4_mask, __zelk_invsqrt2, __zelk_invsqrt2_mask> invsqrt{};
inline constexpr detail::Unary<__zelk_invcbrtf4, __zelk_invcbrtf4_mask, __zelk_invcbrt2, __zelk_invcbrt2_mask> invcbrt{};
inline constexpr detail::Unary<__zelk_erff4, __zelk_erff4_mask, __zelk_erf2, __zelk_erf2_mask> erf{};
inline constexpr detail::Unary<__zelk_erfcf4, __zelk_erfcf4_mask, __zelk_erfc2, __zelk_erfc2_mask> erfc{};

inline constexpr detail::Unary<__zelk_ceilf4, __zelk_ceilf4_mask, __zelk_ceil2, __zelk_ceil2_mask> ceil{};
inline constexpr detail::Unary<__zelk_floorf4, __zelk_floorf4_mask, __zelk_floor2, __zelk_floor2_mask> floor{};
inline constexpr detail::Unary<__zelk_truncf4, __zelk_truncf4_mask, __zelk_trunc2, __zelk_trunc2_mask> trunc{};
inline constexpr detail::Unary<__zelk_roundf4, __zelk_roundf4_mask, __zelk_round2, __zelk_round2_mask> round{};
inline constexpr detail::Unary<__zelk_rintf4, __zelk_rintf4_mask, __zelk_rint2, __zelk_rint2_mask> rint{};
inline constexpr detail::Unary<__zelk_nearbyintf4, __zelk_nearbyintf4_mask, __zelk_nearbyint2, __zelk_nearbyint2_mask> nearbyint{};

// Quotient, remainder, both: of int4 or of uint4.
inline constexpr detail::IntegerBinary<__zelk_idiv4, __zelk_idiv4_mask, __zelk_udiv4, __zelk_udiv4_mask> div{};
inline constexpr detail::IntegerBinary<__zelk_irem4, __zelk_irem4_mask, __zelk_urem4, __zelk_urem4_mask> rem{};
inline constexpr detail::DivRem divrem{};

// clang-format on

// A range of `size` elements from a pointer, for apply().
template <class T>
class range {
public:
    constexpr range(T* data, std::size_t size) noexcept : data_(data), size_(size) {}
    constexpr T* data() const noexcept { return data_; }
    constexpr std::size_t size() const noexcept { return size_; }

private:
    T* data_;
    std::size_t size_;
};

namespace detail {

// Lane vectors by element type: how many elements, loads and stores at any alignment, the mask of given
// lanes.
template <class T>
struct LanesOf;
template <>
struct LanesOf<float> {
    static constexpr std::size_t count = 4;
    static float4 load(const float* p) noexcept { return _mm_loadu_ps(p); }
    static void store(float* p, float4 v) noexcept { _mm_storeu_ps(p, v); }
    static float4 mask(__m128i lanes) noexcept { return _mm_castsi128_ps(lanes); }
};
template <>
struct LanesOf<double> {
    static constexpr std::size_t count = 2;
    static double2 load(const double* p) noexcept { return _mm_loadu_pd(p); }
    static void store(double* p, double2 v) noexcept { _mm_storeu_pd(p, v); }
    static double2 mask(__m128i lanes) noexcept { return _mm_castsi128_pd(lanes); }
};
template <>
struct LanesOf<std::complex<float>> {
    static constexpr std::size_t count = 2;
    static cfloat2 load(const std::complex<float>* p) noexcept
    {
        return {_mm_loadu_ps(reinterpret_cast<const float*>(p))};
    }
    static void store(std::complex<float>* p, cfloat2 v) noexcept
    {
        _mm_storeu_ps(reinterpret_cast<float*>(p), v.v);
    }
    static float4 mask(__m128i lanes) noexcept { return _mm_castsi128_ps(lanes); }
};
template <>
struct LanesOf<std::int32_t> {
    static constexpr std::size_t count = 4;
    static int4 load(const std::int32_t* p) noexcept
    {
        return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))};
    }
    static void store(std::int32_t* p, int4 v) noexcept
    {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v.v);
    }
    static int4 mask(__m128i lanes) noexcept { return {lanes}; }
};
template <>
struct LanesOf<std::uint32_t> {
    static constexpr std::size_t count = 4;
    static uint4 load(const std::uint32_t* p) noexcept
    {
        return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))};
    }
    static void store(std::uint32_t* p, uint4 v) noexcept
    {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v.v);
    }
    static int4 mask(__m128i lanes) noexcept { return {lanes}; }
};

// All ones in the first `bytes` bytes.
inline __m128i first_bytes(std::size_t bytes) noexcept
{
    alignas(16) static constexpr std::uint32_t ones_then_zeros[8] = {~0u, ~0u, ~0u, ~0u, 0, 0, 0, 0};
    return _mm_loadu_si128(
        reinterpret_cast<const __m128i*>(reinterpret_cast<const char*>(ones_then_zeros) + 16 - bytes));
}

// A whole vector, and the first n elements of one: nothing else is read or written.
template <class T>
struct Whole {
    static auto load(const T* p) noexcept { return LanesOf<T>::load(p); }
    template <class F, class... V>
    static auto call(F f, V... v) noexcept
    {
        return f(v...);
    }
    template <class V>
    static void store(T* p, V v) noexcept
    {
        LanesOf<T>::store(p, v);
    }
};
template <class T>
struct First {
    std::size_t n;
    auto load(const T* p) const noexcept
    {
        T lanes[LanesOf<T>::count] = {};
        std::memcpy(lanes, p, n * sizeof(T));
        return LanesOf<T>::load(lanes);
    }
    template <class F, class... V>
    auto call(F f, V... v) const noexcept
    {
        return f(v..., LanesOf<T>::mask(first_bytes(n * sizeof(T))));
    }
    template <class V>
    void store(T* p, V v) const noexcept
    {
        T lanes[LanesOf<T>::count];
        LanesOf<T>::store(lanes, v);
        std::memcpy(p, lanes, n * sizeof(T));
    }
};

// step(part, i) for every whole vector and for the rest.
template <class T, class Step>
void for_each_vector(std::size_t size, Step step) noexcept
{
    std::size_t i = 0;
    for (; size - i >= LanesOf<T>::count; i += LanesOf<T>::count)
        step(Whole<T>{}, i);
    if (i < size) step(First<T>{size - i}, i);
}

template <class Range>
using element = std::remove_cv_t<std::remove_pointer_t<decltype(std::data(std::declval<Range&>()))>>;

template <class... Ranges>
std::size_t shortest(const Ranges&... ranges) noexcept
{
    std::size_t size = ~std::size_t{0};
    ((size = std::size(ranges) < size ? std::size(ranges) : size), ...);
    return size;
}

} // namespace detail

// Applies a function of this header to contiguous ranges (anything with std::data and std::size) of float,
// double, std::complex<float>, std::int32_t or std::uint32_t, all of one type: first the arguments, then the
// results. As many elements are computed as the shortest range has. Ranges may have any alignment; a result
// may be the same range as an argument, but may not overlap one otherwise. The last elements, where they fill
// no vector, go through the masked entry: nothing beyond the end is read or written, and they raise no
// exception but their own.
template <class F, class In, class Out>
void apply(F f, const In& in, Out&& out) noexcept
{
    static_assert(F::arguments == 1 && F::results == 1, "one argument range and one result range");
    using T = detail::element<Out>;
    const T* const x = std::data(in);
    T* const y = std::data(out);
    detail::for_each_vector<T>(detail::shortest(in, out), [=](auto part, std::size_t i) {
        part.store(y + i, part.call(f, part.load(x + i)));
    });
}

// Two arguments and one result, or one argument and two results.
template <class F, class In, class Middle, class Out>
void apply(F f, const In& in, Middle&& middle, Out&& out) noexcept
{
    static_assert(F::arguments + F::results == 3, "as many ranges as the function has arguments and results");
    using T = detail::element<Out>;
    const T* const x = std::data(in);
    T* const z = std::data(out);
    const std::size_t size = detail::shortest(in, middle, out);
    if constexpr (F::arguments == 2) {
        const T* const y = std::data(middle);
        detail::for_each_vector<T>(size, [=](auto part, std::size_t i) {
            part.store(z + i, part.call(f, part.load(x + i), part.load(y + i)));
        });
    } else {
        T* const y = std::data(middle);
        detail::for_each_vector<T>(size, [=](auto part, std::size_t i) {
            const auto both = part.call(f, part.load(x + i));
            part.store(y + i, both.first);
            part.store(z + i, both.second);
        });
    }
}

// Two arguments and two results.
template <class F, class A, class B, class First, class Second>
void apply(F f, const A& a, const B& b, First&& first, Second&& second) noexcept
{
    static_assert(F::arguments == 2 && F::results == 2, "two argument ranges and two result ranges");
    using T = detail::element<First>;
    const T* const x = std::data(a);
    const T* const y = std::data(b);
    T* const p = std::data(first);
    T* const q = std::data(second);
    detail::for_each_vector<T>(detail::shortest(a, b, first, second), [=](auto part, std::size_t i) {
        const auto both = part.call(f, part.load(x + i), part.load(y + i));
        part.store(p + i, both.first);
        part.store(q + i, both.second);
    });
}

} // namespace zelk
