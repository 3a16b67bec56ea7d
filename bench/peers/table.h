// What a peer's module exports: its functions of one 128-bit vector, behind the platform's calling
// convention. A module is a shared object of its own, so that inline code of one library, compiled for two
// instruction sets, stays apart.
#pragma once

#include <emmintrin.h>

struct PeerFunction {
    const char* name; // "sin"; null ends the table
    __m128 (*f4)(__m128);
    __m128d (*d2)(__m128d);
    __m128 (*f4_binary)(__m128, __m128);
    __m128d (*d2_binary)(__m128d, __m128d);
};

extern "C" [[gnu::visibility("default")]] const PeerFunction peer_functions[];
