// The public headers declare every name of the list, as the list has it.
#include "entries.h"
#include "zelk/zelk.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <type_traits>

namespace {

using f4 = zelk_float4;
using d2 = zelk_double2;
using c2 = zelk_cfloat2;
using i4 = zelk_int4;
using u4 = zelk_uint4;

template <class Lanes, int vectors>
struct Signature;
template <class Lanes>
struct Signature<Lanes, 1> {
    using Plain = Lanes(Lanes);
    using Storing = Lanes(Lanes, Lanes*);
};
template <class Lanes>
struct Signature<Lanes, 2> {
    using Plain = Lanes(Lanes, Lanes);
    using Storing = Lanes(Lanes, Lanes, Lanes*);
};
template <class Lanes>
struct Signature<Lanes, 3> {
    using Plain = Lanes(Lanes, Lanes, Lanes);
    using Storing = Lanes(Lanes, Lanes, Lanes, Lanes*);
};

#pragma GCC diagnostic ignored "-Wignored-attributes"

// What a header declares, next to the name that the library exports. The functions are called with one vector
// per argument and one for the mask; a declaration of another type does not compile.
struct Declared {
    const char* name;
    const void* address;
};

template <class Function>
Declared declared(const char* name, Function* function)
{
    return {name, reinterpret_cast<const void*>(function)};
}
// Of a table only the type is at stake: a program may have its own copy of what it reads.
template <class Number, std::size_t size, class Table>
Declared declared_table(const char* name, Table&)
{
    static_assert(std::is_same_v<std::remove_all_extents_t<Table>, const Number> && sizeof(Table) == size);
    return {name, zelk::exported(name)};
}
template <class Lanes, int vectors>
Declared plain(const char* name, typename Signature<Lanes, vectors>::Plain* function)
{
    return declared(name, function);
}
template <class Lanes, int vectors>
Declared storing(const char* name, typename Signature<Lanes, vectors>::Storing* function)
{
    return declared(name, function);
}

#define ZELK_FORM_1 plain
#define ZELK_FORM_2 plain // C sees the first of the two results
#define ZELK_FORM_P storing
#define ZELK_MASKED_1(symbol) symbol##_mask
#define ZELK_MASKED_2(symbol) symbol##_mask
#define ZELK_MASKED_P(symbol) symbol##Mask
#define ZELK_NAMED(form, lanes, vectors, name) form<lanes, vectors>(#name, name),
#define ZELK_DECLARED(form, lanes, vectors, name) ZELK_NAMED(form, lanes, vectors, name)
#define ZELK_TIER(form, lanes, args, symbol, tier) form<lanes, args>(#symbol "." #tier, symbol##_##tier),
#if defined(__x86_64__)
#define ZELK_TIERS_d2(...) ZELK_TIER(__VA_ARGS__, A) ZELK_TIER(__VA_ARGS__, L)
#define ZELK_TIERS_f4(...) ZELK_TIERS_d2(__VA_ARGS__)
#define ZELK_TIERS_i4(...) ZELK_TIERS_d2(__VA_ARGS__)
#else
#define ZELK_TIERS_d2(...) ZELK_TIER(__VA_ARGS__, A) ZELK_TIER(__VA_ARGS__, L) ZELK_TIER(__VA_ARGS__, N)
#define ZELK_TIERS_f4(...) ZELK_TIER(__VA_ARGS__, J) ZELK_TIERS_d2(__VA_ARGS__)
#define ZELK_TIERS_i4(...) ZELK_TIERS_f4(__VA_ARGS__)
#endif
#define ZELK_TIERS_c2(...) ZELK_TIERS_f4(__VA_ARGS__)
#define ZELK_TIERS_u4(...) ZELK_TIERS_i4(__VA_ARGS__)

// An alias and its masked twin, unless the row says none: that word brings a second argument that wins the
// choice.
#define ZELK_PROBE_none ~, ZELK_NO_ALIAS,
#define ZELK_SECOND(first, second, ...) second
#define ZELK_CHOOSE(...) ZELK_SECOND(__VA_ARGS__)
#define ZELK_NO_ALIAS(lanes, args, alias)
#define ZELK_WITH_ALIAS(lanes, args, alias)                                                                  \
    ZELK_NAMED(plain, lanes, args, alias) ZELK_NAMED(plain, lanes, args + 1, alias##Mask)

#define ZELK_ENTRY(kernel, symbol, lanes, args, results, x86_64, i386, mask, a, b, alias)                    \
    ZELK_NAMED(ZELK_FORM_##results, lanes, args, symbol)                                                     \
    ZELK_DECLARED(ZELK_FORM_##results, lanes, args + 1, ZELK_MASKED_##results(symbol))                       \
    ZELK_TIERS_##lanes(ZELK_FORM_##results, lanes, args, symbol)                                             \
        ZELK_CHOOSE(ZELK_PROBE_##alias, ZELK_WITH_ALIAS, ~)(lanes, args, alias)

#define ZELK_SIGNATURE_d_d double(double)
#define ZELK_SIGNATURE_d_dd double(double, double)
#define ZELK_SIGNATURE_f_f float(float)
#define ZELK_SIGNATURE_l_l long double(long double)
#define ZELK_SIGNATURE_l_ll long double(long double, long double)
#define ZELK_SIGNATURE_v_lLL void(long double, long double*, long double*)
#define ZELK_SIGNATURE_v_LLl void(long double*, long double*, long double)
#define ZELK_SIGNATURE_f_ff float(float, float)
#define ZELK_SIGNATURE_c_c float _Complex(float _Complex)
#define ZELK_SIGNATURE_c_cc float _Complex(float _Complex, float _Complex)
#define ZELK_SIGNATURE_z_z double _Complex(double _Complex)
#define ZELK_SIGNATURE_z_zz double _Complex(double _Complex, double _Complex)
#define ZELK_SIGNATURE_i_lD int(long double, double*)
#define ZELK_SCALAR_TIER(name, signature, tier)                                                              \
    declared<ZELK_SIGNATURE_##signature>(#name "." #tier, name##_##tier),
#define ZELK_SCALAR_TIERS_plain(name, signature)
#define ZELK_SCALAR_TIERS_JA_hidden(name, signature)
#define ZELK_SCALAR_TIERS_LA(name, signature)                                                                \
    ZELK_SCALAR_TIER(name, signature, A) ZELK_SCALAR_TIER(name, signature, L)
#define ZELK_SCALAR_TIERS_JA(name, signature)                                                                \
    ZELK_SCALAR_TIER(name, signature, A) ZELK_SCALAR_TIER(name, signature, J)
#if defined(__x86_64__)
#define ZELK_SCALAR_TIERS(name, signature, x86_64, i386) ZELK_SCALAR_TIERS_##x86_64(name, signature)
#else
#define ZELK_SCALAR_TIERS(name, signature, x86_64, i386) ZELK_SCALAR_TIERS_##i386(name, signature)
#endif
#define ZELK_SCALAR(kernel, signature, ...)                                                                  \
    declared<ZELK_SIGNATURE_##signature>(#kernel, kernel), ZELK_SCALAR_TIERS(kernel, signature, __VA_ARGS__)
#define ZELK_DATA(name, type, entries, values)                                                               \
    declared_table<type, sizeof(type) * entries * values>(#name, name),

#pragma GCC diagnostic ignored "-Wpedantic" // complex types
const Declared declarations[] = {
#include "dispatch/entries.def"
};

TEST(Header, DeclaresEveryNameOfTheLibrary)
{
    std::set<std::string> names;
    for (const auto& [name, address] : declarations) {
        EXPECT_EQ(address, zelk::exported(name)) << name;
        names.insert(name);
    }
    for (const std::string& name : zelk::listed_exports())
        EXPECT_TRUE(names.count(name)) << name;
}

// A caller's view: a plain call through the header.
TEST(Header, PlainCall)
{
    alignas(16) float lanes[4];
    _mm_store_ps(lanes, __zelk_cosf4(_mm_setzero_ps()));
    for (const float lane : lanes)
        EXPECT_EQ(lane, 1.0f);
}

bool same(const void* a, const void* b)
{
    return std::memcmp(a, b, 16) == 0;
}

// Both results of the inline functions are those of the forms that store the second one.
TEST(Header, TwoResults)
{
    const f4 x = _mm_setr_ps(0.5f, -2.0f, 1.25f, 3.0f);
    const d2 xd = _mm_setr_pd(-0.75, 1e6);
    const i4 a = _mm_setr_epi32(100, -7, 0x7FFFFFFF, -1);
    const i4 b = _mm_setr_epi32(7, 2, -3, 10);
    const i4 mask = _mm_setr_epi32(-1, 0, -1, 0);
    const f4 f4_mask = _mm_castsi128_ps(mask);
    const d2 d2_mask = _mm_castsi128_pd(_mm_setr_epi32(0, 0, -1, -1));
    f4 cosine, expected_cosine;
    d2 cosine_d, expected_cosine_d;
    i4 remainder, expected_remainder;

    f4 sine = zelk_sincosf4(x, &cosine);
    f4 expected = ropsSinCos4(x, &expected_cosine);
    EXPECT_TRUE(same(&sine, &expected) && same(&cosine, &expected_cosine));
    sine = zelk_sincosf4_mask(x, f4_mask, &cosine);
    expected = ropsSinCos4Mask(x, f4_mask, &expected_cosine);
    EXPECT_TRUE(same(&sine, &expected) && same(&cosine, &expected_cosine));

    d2 sine_d = zelk_sincos2(xd, &cosine_d);
    d2 expected_d = ropdSinCos2(xd, &expected_cosine_d);
    EXPECT_TRUE(same(&sine_d, &expected_d) && same(&cosine_d, &expected_cosine_d));
    sine_d = zelk_sincos2_mask(xd, d2_mask, &cosine_d);
    expected_d = ropdSinCos2Mask(xd, d2_mask, &expected_cosine_d);
    EXPECT_TRUE(same(&sine_d, &expected_d) && same(&cosine_d, &expected_cosine_d));

    i4 quotient = zelk_idivrem4(a, b, &remainder);
    i4 expected_i = ropiDivRem4(a, b, &expected_remainder);
    EXPECT_TRUE(same(&quotient, &expected_i) && same(&remainder, &expected_remainder));
    quotient = zelk_idivrem4_mask(a, b, mask, &remainder);
    expected_i = ropiDivRem4Mask(a, b, mask, &expected_remainder);
    EXPECT_TRUE(same(&quotient, &expected_i) && same(&remainder, &expected_remainder));
    quotient = zelk_udivrem4(a, b, &remainder);
    expected_i = ropuDivRem4(a, b, &expected_remainder);
    EXPECT_TRUE(same(&quotient, &expected_i) && same(&remainder, &expected_remainder));
    quotient = zelk_udivrem4_mask(a, b, mask, &remainder);
    expected_i = ropuDivRem4Mask(a, b, mask, &expected_remainder);
    EXPECT_TRUE(same(&quotient, &expected_i) && same(&remainder, &expected_remainder));
}

} // namespace
