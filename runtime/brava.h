// libbrava: what the running processor can do, as one word.
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// 0 until determined, then non-zero and stable. Each bit is one instruction-set level; a level's bit is set
// only with those of all lower levels, so that a test for "any bit from n upwards" asks for level n or
// better.
//
//   bit  0  x86, and the word is determined    bit 12  SSSE3
//   bit  7  SSE                                bit 13  SSE4.1
//   bit  9  SSE2                               bit 14  SSE4.2 and POPCNT
//   bit 11  SSE3                               bit 15  AVX, enabled by the system
//                                              bit 16  AVX2, BMI1, BMI2, F16C, FMA, LZCNT, MOVBE
//
// All other bits are 0.
extern uint32_t __brava_cpu_indicator;

// Determines the word. May be called any number of times, from any number of threads, and before main: it
// stores the same value every time. Preserves every register but the flags.
void __brava_cpu_indicator_init(void);

#ifdef __cplusplus
}
#endif
