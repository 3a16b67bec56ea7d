// Latency is measured over a chain in which each argument waits for the result before it.
#pragma once

#include <complex>
#include <concepts>
#include <cstdint>
#include <xmmintrin.h>

namespace zelk::bench {

// x, but not before `previous` is known: ORs the bits of `previous`, ANDed with 0, into x. The two logical
// operations are part of every latency that is reported.
template <class T>
inline T after(T x, T previous)
{
    if constexpr (std::integral<T>)
        asm("andl $0, %[previous]\n\torl %[previous], %[x]" : [x] "+r"(x), [previous] "+r"(previous));
    else
        asm("andps %[zero], %[previous]\n\torps %[previous], %[x]"
            : [x] "+x"(x), [previous] "+x"(previous)
            : [zero] "x"(_mm_setzero_ps()));
    return x;
}

inline std::complex<float> after(std::complex<float> x, std::complex<float> previous)
{
    return {after(x.real(), previous.real()), x.imag()};
}

} // namespace zelk::bench
