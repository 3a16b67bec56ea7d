/* Calling the entries that return two vectors in XMM0 and XMM1, a convention that C has no declaration for.
 * The inline functions of the public headers are written with these; programs have no need to call them. */
#ifndef ZELK_DETAIL_TWO_RESULTS_H
#define ZELK_DETAIL_TWO_RESULTS_H

#include "zelk/types.h"

typedef void zelk_two_result_entry(void);

/* Calls entry(a, b, mask); returns the first result and stores the second. */
static __inline__ zelk_float4 zelk_call_two_results(zelk_two_result_entry* entry, zelk_float4 a,
                                                    zelk_float4 b, zelk_float4 mask, zelk_float4* second)
{
    register zelk_float4 xmm0 __asm__("xmm0") = a;
    register zelk_float4 xmm1 __asm__("xmm1") = b;
    register zelk_float4 xmm2 __asm__("xmm2") = mask;
#if defined(__x86_64__)
    /* The caller may keep live data in the 128 bytes below the stack pointer, and its alignment is not known
     * here. */
    __asm__ volatile("movq %%rsp, %%rbx\n\t"
                     "leaq -128(%%rsp), %%rsp\n\t"
                     "andq $-16, %%rsp\n\t"
                     "call *%[entry]\n\t"
                     "movq %%rbx, %%rsp"
                     : "+x"(xmm0), "+x"(xmm1), "+x"(xmm2)
                     : [entry] "r"(entry)
                     : "rax", "rbx", "rcx", "rdx", "rsi", "rdi", "r8", "r9", "r10", "r11", "xmm3", "xmm4",
                       "xmm5", "xmm6", "xmm7", "xmm8", "xmm9", "xmm10", "xmm11", "xmm12", "xmm13", "xmm14",
                       "xmm15", "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)", "memory",
                       "cc");
#else
    __asm__ volatile("movl %%esp, %%esi\n\t"
                     "andl $-16, %%esp\n\t"
                     "call *%[entry]\n\t"
                     "movl %%esi, %%esp"
                     : "+x"(xmm0), "+x"(xmm1), "+x"(xmm2)
                     : [entry] "r"(entry)
                     : "eax", "ecx", "edx", "esi", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7", "st", "st(1)",
                       "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)", "memory", "cc");
#endif
    *second = xmm1;
    return xmm0;
}

static __inline__ zelk_double2 zelk_call_two_results_pd(zelk_two_result_entry* entry, zelk_double2 a,
                                                        zelk_double2 mask, zelk_double2* second)
{
    zelk_float4 other;
    const zelk_float4 first =
        zelk_call_two_results(entry, _mm_castpd_ps(a), _mm_castpd_ps(mask), _mm_setzero_ps(), &other);
    *second = _mm_castps_pd(other);
    return _mm_castps_pd(first);
}

static __inline__ zelk_int4 zelk_call_two_results_epi32(zelk_two_result_entry* entry, zelk_int4 a,
                                                        zelk_int4 b, zelk_int4 mask, zelk_int4* second)
{
    zelk_float4 other;
    const zelk_float4 first = zelk_call_two_results(entry, _mm_castsi128_ps(a), _mm_castsi128_ps(b),
                                                    _mm_castsi128_ps(mask), &other);
    *second = _mm_castps_si128(other);
    return _mm_castps_si128(first);
}

#endif
