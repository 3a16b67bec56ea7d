// Declares every kernel of the tier being compiled, with its exported name, from the list of entries.
// A kernel source includes this and defines `float4 sinf4(float4 x)` in namespace zelk::ZELK_TIER.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

#define ZELK_LANES_f4 float4
#define ZELK_LANES_d2 double2
#define ZELK_LANES_c2 float4
#define ZELK_LANES_i4 int4
#define ZELK_LANES_u4 uint4
#define ZELK_ARGUMENTS_1(T) T
#define ZELK_ARGUMENTS_2(T) T, T
#define ZELK_POINTER_1(T)
#define ZELK_POINTER_2(T)
#define ZELK_POINTER_P(T) , T*

// Two-result kernels are declared with their first result; they end in `return both(first, second)`.
#define ZELK_ENTRY(kernel, symbol, lanes, args, results, ...)                                                \
    [[gnu::visibility("default")]] ZELK_LANES_##lanes kernel(ZELK_ARGUMENTS_##args(                          \
        ZELK_LANES_##lanes) ZELK_POINTER_##results(ZELK_LANES_##lanes)) asm(#symbol "." ZELK_TIER_NAME);

#define ZELK_RESULT_d_d double
#define ZELK_RESULT_d_dd double
#define ZELK_RESULT_f_f float
#define ZELK_RESULT_l_l long double
#define ZELK_RESULT_l_ll long double
#define ZELK_RESULT_v_lLL void
#define ZELK_RESULT_v_LLl void
#define ZELK_RESULT_i_lD int
#define ZELK_RESULT_f_ff float
#define ZELK_RESULT_c_c complex_float
#define ZELK_RESULT_c_cc complex_float
#define ZELK_RESULT_z_z complex_double
#define ZELK_RESULT_z_zz complex_double
#define ZELK_ARGUMENTS_d_d double
#define ZELK_ARGUMENTS_d_dd double, double
#define ZELK_ARGUMENTS_f_f float
#define ZELK_ARGUMENTS_l_l long double
#define ZELK_ARGUMENTS_l_ll long double, long double
#define ZELK_ARGUMENTS_v_lLL long double, long double*, long double*
#define ZELK_ARGUMENTS_v_LLl long double*, long double*, long double
#define ZELK_ARGUMENTS_i_lD long double, double*
#define ZELK_ARGUMENTS_f_ff float, float
#define ZELK_ARGUMENTS_c_c complex_float
#define ZELK_ARGUMENTS_c_cc complex_float, complex_float
#define ZELK_ARGUMENTS_z_z complex_double
#define ZELK_ARGUMENTS_z_zz complex_double, complex_double
#define ZELK_SYMBOL_plain(kernel) #kernel
#define ZELK_SYMBOL_LA(kernel) #kernel "." ZELK_TIER_NAME
#define ZELK_SYMBOL_JA(kernel) #kernel "." ZELK_TIER_NAME
#define ZELK_SYMBOL_JA_hidden(kernel) #kernel "." ZELK_TIER_NAME
#if defined(__x86_64__)
#define ZELK_SCALAR_SYMBOL(kernel, x86_64, i386) ZELK_SYMBOL_##x86_64(kernel)
#else
#define ZELK_SCALAR_SYMBOL(kernel, x86_64, i386) ZELK_SYMBOL_##i386(kernel)
#endif

#define ZELK_SCALAR(kernel, signature, x86_64, i386)                                                         \
    [[gnu::visibility("default")]] ZELK_RESULT_##signature kernel(ZELK_ARGUMENTS_##signature) asm(           \
        ZELK_SCALAR_SYMBOL(kernel, x86_64, i386));

#include "dispatch/entries.def"

#undef ZELK_ENTRY
#undef ZELK_SCALAR

} // namespace zelk::ZELK_TIER

// The scalar routines under the names that callers use: the tiered ones through their dispatchers.
namespace zelk::dispatched {

#define ZELK_ENTRY(...)
#define ZELK_SCALAR(kernel, signature, ...)                                                                  \
    ZELK_RESULT_##signature kernel(ZELK_ARGUMENTS_##signature) asm(#kernel);

#include "dispatch/entries.def"

#undef ZELK_ENTRY
#undef ZELK_SCALAR

} // namespace zelk::dispatched
