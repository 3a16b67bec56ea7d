// The public headers declare every entry of the list whose convention a C declaration can express, as the
// list has it.
#include "zelk/zelk.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using f4 = zelk_float4;
using d2 = zelk_double2;
using c2 = zelk_cfloat2;
using i4 = zelk_int4;
using u4 = zelk_uint4;

template <class Lanes, int arguments, bool pointer>
struct Signature;
template <class Lanes>
struct Signature<Lanes, 1, false> {
    using Type = Lanes(Lanes);
};
template <class Lanes>
struct Signature<Lanes, 2, false> {
    using Type = Lanes(Lanes, Lanes);
};
template <class Lanes>
struct Signature<Lanes, 1, true> {
    using Type = Lanes(Lanes, Lanes*);
};
template <class Lanes>
struct Signature<Lanes, 2, true> {
    using Type = Lanes(Lanes, Lanes, Lanes*);
};

// Entries that return two registers have no C declaration; the pointer forms have.
#define ZELK_CHECK_1(symbol, lanes, args)                                                                    \
    static_assert(std::is_same_v<decltype(symbol), Signature<lanes, args, false>::Type>);
#define ZELK_CHECK_2(symbol, lanes, args)
#define ZELK_CHECK_P(symbol, lanes, args)                                                                    \
    static_assert(std::is_same_v<decltype(symbol), Signature<lanes, args, true>::Type>);
#define ZELK_ENTRY(kernel, symbol, lanes, args, results, ...) ZELK_CHECK_##results(symbol, lanes, args)

#define ZELK_SIGNATURE_d_d double(double)
#define ZELK_SIGNATURE_d_dd double(double, double)
#define ZELK_SIGNATURE_f_f float(float)
#define ZELK_SIGNATURE_l_l long double(long double)
#define ZELK_SIGNATURE_l_ll long double(long double, long double)
#define ZELK_SIGNATURE_v_lLL void(long double, long double*, long double*)
#define ZELK_SIGNATURE_v_LLl void(long double*, long double*, long double)
#define ZELK_SIGNATURE_i_lD int(long double, double*)
#define ZELK_SCALAR(kernel, signature, ...)                                                                  \
    static_assert(std::is_same_v<decltype(kernel), ZELK_SIGNATURE_##signature>);

#define ZELK_DATA(name, type, entries, values)                                                               \
    static_assert(std::is_same_v<std::remove_all_extents_t<decltype(name)>, const type>);                    \
    static_assert(sizeof name == sizeof(type) * entries * values);

#pragma GCC diagnostic ignored "-Wignored-attributes"
#include "dispatch/entries.def"

// A caller's view: a plain call through the header.
TEST(Header, PlainCall)
{
    alignas(16) float lanes[4];
    _mm_store_ps(lanes, __zelk_cosf4(_mm_setzero_ps()));
    for (const float lane : lanes)
        EXPECT_EQ(lane, 1.0f);
}

} // namespace
