#include "brava.h"

#include <cpuid.h>
#include <cstdint>

extern "C" {

[[gnu::visibility("default")]] std::uint32_t __brava_cpu_indicator = 0;

[[gnu::visibility("default"), gnu::no_caller_saved_registers]] void __brava_cpu_indicator_init(void);
}

namespace {

struct Level {
    std::uint32_t indicator_bit;
    bool present;
};

// Whether the system saves the AVX registers (XCR0 bits 1 and 2).
[[gnu::always_inline]] inline bool system_saves_avx(unsigned leaf1_ecx)
{
    if (!(leaf1_ecx & bit_OSXSAVE)) return false;
    unsigned xcr0_low = 0;
    unsigned xcr0_high = 0;
    asm volatile("xgetbv" : "=a"(xcr0_low), "=d"(xcr0_high) : "c"(0));
    return (xcr0_low & 6u) == 6u;
}

} // namespace

// Compiled for general registers only, so that no vector register is touched either.
void __brava_cpu_indicator_init(void)
{
    unsigned eax = 0;
    unsigned ebx = 0;
    unsigned ecx = 0;
    unsigned edx = 0;
    unsigned ecx1 = 0;
    unsigned edx1 = 0;
    unsigned ebx7 = 0;
    unsigned ecx_extended = 0;
    __cpuid(0, eax, ebx, ecx, edx);
    const unsigned highest = eax;
    if (highest >= 1) __cpuid(1, eax, ebx, ecx1, edx1);
    if (highest >= 7) __cpuid_count(7, 0, eax, ebx7, ecx, edx);
    __cpuid(0x80000000u, eax, ebx, ecx, edx);
    if (eax >= 0x80000001u) __cpuid(0x80000001u, eax, ebx, ecx_extended, edx);

    const unsigned avx2_in_ecx1 = bit_FMA | bit_F16C | bit_MOVBE;
    const unsigned avx2_in_ebx7 = bit_AVX2 | bit_BMI | bit_BMI2;
    const unsigned sse42_in_ecx1 = bit_SSE4_2 | bit_POPCNT;
    const Level levels[] = {
        {7, (edx1 & bit_SSE) != 0},
        {9, (edx1 & bit_SSE2) != 0},
        {11, (ecx1 & bit_SSE3) != 0},
        {12, (ecx1 & bit_SSSE3) != 0},
        {13, (ecx1 & bit_SSE4_1) != 0},
        {14, (ecx1 & sse42_in_ecx1) == sse42_in_ecx1},
        {15, (ecx1 & bit_AVX) != 0 && system_saves_avx(ecx1)},
        {16, (ecx1 & avx2_in_ecx1) == avx2_in_ecx1 && (ebx7 & avx2_in_ebx7) == avx2_in_ebx7 &&
                 (ecx_extended & bit_LZCNT) != 0},
    };
    std::uint32_t word = 1;
    for (const Level& level : levels) {
        if (!level.present) break;
        word |= std::uint32_t{1} << level.indicator_bit;
    }
    __atomic_store_n(&__brava_cpu_indicator, word, __ATOMIC_RELAXED);
}
