// Loops over the lane vectors through a pointer to an entry or a kernel, one call per vector.
#pragma once

#include <emmintrin.h>

#include "chain.h"
#include "workloads.h"

namespace zelk::bench {

using VectorLoop = void (*)(const void* function, Arrays&);

struct VectorLoops {
    VectorLoop throughput;
    VectorLoop latency;
};

// Inlined into its loop: nothing may come between the call and the reading of XMM1.
template <class V, int arguments, Results results>
[[gnu::always_inline]] inline V call_vector(const void* function, V x, V y, V* second)
{
    const auto address = reinterpret_cast<std::uintptr_t>(function);
    if constexpr (results == Results::pointer) {
        if constexpr (arguments == 1) return reinterpret_cast<V (*)(V, V*)>(address)(x, second);
        return reinterpret_cast<V (*)(V, V, V*)>(address)(x, y, second);
    } else {
        V first;
        if constexpr (arguments == 1)
            first = reinterpret_cast<V (*)(V)>(address)(x);
        else
            first = reinterpret_cast<V (*)(V, V)>(address)(x, y);
        if constexpr (results == Results::two) {
            register V xmm0 asm("xmm0") = first;
            register V xmm1 asm("xmm1");
            asm volatile("" : "+x"(xmm0), "=x"(xmm1));
            *second = xmm1;
            return xmm0;
        }
        return first;
    }
}

template <class V, int arguments, Results results>
constexpr VectorLoops vector_loops()
{
    constexpr std::size_t count = Block::count<V>;
    return {[](const void* function, Arrays& arrays) {
                for (std::size_t i = 0; i < count; ++i)
                    arrays.first.as<V>()[i] = call_vector<V, arguments, results>(
                        function, arrays.x.as<V>()[i], arrays.y.as<V>()[i], &arrays.second.as<V>()[i]);
            },
            [](const void* function, Arrays& arrays) {
                V result{};
                for (std::size_t i = 0; i < count; ++i)
                    result = call_vector<V, arguments, results>(function, after(arrays.x.as<V>()[i], result),
                                                                arrays.y.as<V>()[i], arrays.second.as<V>());
                arrays.first.as<V>()[0] = result;
            }};
}

template <class V>
constexpr VectorLoops vector_loops(int arguments, Results results)
{
    const bool one = arguments == 1;
    switch (results) {
    case Results::one:
        return one ? vector_loops<V, 1, Results::one>() : vector_loops<V, 2, Results::one>();
    case Results::two:
        return one ? vector_loops<V, 1, Results::two>() : vector_loops<V, 2, Results::two>();
    default:
        return one ? vector_loops<V, 1, Results::pointer>() : vector_loops<V, 2, Results::pointer>();
    }
}

inline VectorLoops vector_loops_of(const Entry& entry)
{
    switch (entry.lanes) {
    case Lanes::d2:
        return vector_loops<__m128d>(entry.args, entry.results);
    case Lanes::i4:
    case Lanes::u4:
        return vector_loops<__m128i>(entry.args, entry.results);
    default:
        return vector_loops<__m128>(entry.args, entry.results);
    }
}

} // namespace zelk::bench
