// Loops over the lane vectors through a pointer, one call per vector: the same for entries, kernels and
// peers.
#pragma once

#include "arrays.h"
#include "chain.h"

#include "entries.h"

#include <cstdint>
#include <emmintrin.h>

namespace zelk::bench {

// Where a function leaves its results: the library's conventions, and a structure of two vectors.
enum class Convention { one, two, pointer, structure };

template <class V>
struct Two {
    V first;
    V second;
};

template <class V, int arguments, class Result, class... More>
[[gnu::always_inline]] inline Result call_through(const void* function, V x, V y, V z, More... more)
{
    const auto address = reinterpret_cast<std::uintptr_t>(function);
    if constexpr (arguments == 1)
        return reinterpret_cast<Result (*)(V, More...)>(address)(x, more...);
    else if constexpr (arguments == 2)
        return reinterpret_cast<Result (*)(V, V, More...)>(address)(x, y, more...);
    else
        return reinterpret_cast<Result (*)(V, V, V, More...)>(address)(x, y, z, more...);
}

// Inlined into its loop: nothing may come between the call and the reading of XMM1.
template <class V, int arguments, Convention convention>
[[gnu::always_inline]] inline V call_vector(const void* function, V x, V y, V z, V* second)
{
    if constexpr (convention == Convention::structure) {
        const auto both = call_through<V, arguments, Two<V>>(function, x, y, z);
        *second = both.second;
        return both.first;
    } else if constexpr (convention == Convention::pointer) {
        return call_through<V, arguments, V>(function, x, y, z, second);
    } else {
        const V first = call_through<V, arguments, V>(function, x, y, z);
        if constexpr (convention == Convention::one) return first;
        register V xmm0 asm("xmm0") = first;
        register V xmm1 asm("xmm1");
        asm volatile("" : "+x"(xmm0), "=x"(xmm1));
        *second = xmm1;
        return xmm0;
    }
}

// The third argument is a mask with all lanes active.
template <class V, int arguments, Convention convention>
constexpr Loops vector_loops()
{
    return {[](const void* function, const Arrays& arrays) {
                const V all = (V)_mm_set1_epi32(-1);
                const auto* x = static_cast<const V*>(arrays.x);
                const auto* y = static_cast<const V*>(arrays.y);
                auto* first = static_cast<V*>(arrays.first);
                auto* second = static_cast<V*>(arrays.second);
                for (std::size_t i = 0; i < arrays.count<V>(); ++i)
                    first[i] = call_vector<V, arguments, convention>(function, x[i], y[i], all, &second[i]);
            },
            [](const void* function, const Arrays& arrays) {
                const V all = (V)_mm_set1_epi32(-1);
                const auto* x = static_cast<const V*>(arrays.x);
                const auto* y = static_cast<const V*>(arrays.y);
                auto* second = static_cast<V*>(arrays.second);
                V result{};
                for (std::size_t i = 0; i < arrays.count<V>(); ++i)
                    result = call_vector<V, arguments, convention>(function, after(x[i], result), y[i], all,
                                                                   second);
                *static_cast<V*>(arrays.first) = result;
            }};
}

template <class V, Convention convention>
constexpr Loops vector_loops(int arguments)
{
    switch (arguments) {
    case 1:
        return vector_loops<V, 1, convention>();
    case 2:
        return vector_loops<V, 2, convention>();
    default:
        return vector_loops<V, 3, convention>();
    }
}

template <class V>
constexpr Loops vector_loops(int arguments, Convention convention)
{
    switch (convention) {
    case Convention::one:
        return vector_loops<V, Convention::one>(arguments);
    case Convention::two:
        return vector_loops<V, Convention::two>(arguments);
    case Convention::pointer:
        return vector_loops<V, Convention::pointer>(arguments);
    default:
        return vector_loops<V, Convention::structure>(arguments);
    }
}

inline Loops vector_loops(Lanes lanes, int arguments, Convention convention)
{
    switch (lanes) {
    case Lanes::d2:
        return vector_loops<__m128d>(arguments, convention);
    case Lanes::i4:
    case Lanes::u4:
        return vector_loops<__m128i>(arguments, convention);
    default:
        return vector_loops<__m128>(arguments, convention);
    }
}

inline Convention convention_of(Results results)
{
    switch (results) {
    case Results::one:
        return Convention::one;
    case Results::two:
        return Convention::two;
    default:
        return Convention::pointer;
    }
}

} // namespace zelk::bench
