// The dispatchers: one per row of entries.def.
//
// A dispatcher loads the processor-feature word, tests it against the mask of each tier that its row names, and
// jumps to the first tier that has a bit set. Arguments, pointer and stack stay as the caller left them, so the
// kernel returns straight to the caller. A word of 0 means that the features are not determined yet: the
// dispatcher has them determined, which preserves all argument registers, and starts again.

#include <cet.h>

// Masks of the tiers over the feature word.
.set mask_A, 0xFFFFFFFF
.set mask_J, 0xFFFFFE00
.set mask_L, 0xFFFFF800
.set mask_N, 0xFFFFE000

#define ZELK_TIERS_A A
#define ZELK_TIERS_LA L, A
#define ZELK_TIERS_JA J, A
#define ZELK_TIERS_NA N, A
#define ZELK_TIERS_NLA N, L, A
#define ZELK_TIERS_LJA L, J, A
#define ZELK_TIERS_NJA N, J, A
#define ZELK_TIERS_NLJA N, L, J, A

#if defined(__x86_64__)

.macro dispatcher symbol:req, lanes:req, tiers:vararg
    .globl \symbol
    .type \symbol, @function
    .p2align 4
\symbol:
    .cfi_startproc
    _CET_ENDBR
1:  movq __brava_cpu_indicator@GOTPCREL(%rip), %rax
    movl (%rax), %eax
    .irp tier, \tiers
    testl $mask_\tier, %eax
    jnz \symbol\().\tier
    .endr
    subq $8, %rsp
    .cfi_adjust_cfa_offset 8
    call *__brava_cpu_indicator_init@GOTPCREL(%rip)
    addq $8, %rsp
    .cfi_adjust_cfa_offset -8
    jmp 1b
    .cfi_endproc
    .size \symbol, . - \symbol
.endm

#define ZELK_ENTRY(kernel, symbol, lanes, args, results, x86_64, i386, mask, a, b, alias)                    \
    dispatcher symbol, lanes, ZELK_TIERS_##x86_64
#define ZELK_SCALAR_TIERS(x86_64, i386) x86_64

#else

// Tier A of the f4 and c2 functions does not exist yet (see entries.def): J stands in for it.
.macro jump_to_tier symbol:req, lanes:req, tier:req
    .ifc \lanes\tier, f4A
    jnz \symbol\().J
    .else
    .ifc \lanes\tier, c2A
    jnz \symbol\().J
    .else
    jnz \symbol\().\tier
    .endif
    .endif
.endm

.macro dispatcher symbol:req, lanes:req, tiers:vararg
    .globl \symbol
    .type \symbol, @function
    .p2align 4
\symbol:
    .cfi_startproc
    _CET_ENDBR
1:  call .Lload_pc
    addl $_GLOBAL_OFFSET_TABLE_, %eax
    movl __brava_cpu_indicator@GOT(%eax), %eax
    movl (%eax), %eax
    .irp tier, \tiers
    testl $mask_\tier, %eax
    jump_to_tier \symbol, \lanes, \tier
    .endr
    // The caller may hold the stack at any multiple of 4; the initialisation gets it aligned to 16.
    pushl %ebp
    .cfi_def_cfa_offset 8
    .cfi_offset %ebp, -8
    movl %esp, %ebp
    .cfi_def_cfa_register %ebp
    andl $-16, %esp
    call .Lload_pc
    addl $_GLOBAL_OFFSET_TABLE_, %eax
    call *__brava_cpu_indicator_init@GOT(%eax)
    leave
    .cfi_restore %ebp
    .cfi_def_cfa %esp, 4
    jmp 1b
    .cfi_endproc
    .size \symbol, . - \symbol
.endm

#define ZELK_ENTRY(kernel, symbol, lanes, args, results, x86_64, i386, mask, a, b, alias)                    \
    dispatcher symbol, lanes, ZELK_TIERS_##i386
#define ZELK_SCALAR_TIERS(x86_64, i386) i386

    .text
    .p2align 4
.Lload_pc:
    .cfi_startproc
    movl (%esp), %eax
    ret
    .cfi_endproc

#endif

// A scalar routine with one implementation has no dispatcher.
.macro scalar_dispatcher symbol:req, tiers:vararg
    .ifnc \tiers, plain
    dispatcher \symbol, scalar, \tiers
    .endif
.endm
#define ZELK_TIERS_plain plain
#define ZELK_TIERS_OF_(column) ZELK_TIERS_##column
#define ZELK_TIERS_OF(column) ZELK_TIERS_OF_(column)
#define ZELK_SCALAR(kernel, signature, x86_64, i386)                                                         \
    scalar_dispatcher kernel, ZELK_TIERS_OF(ZELK_SCALAR_TIERS(x86_64, i386))

    .text
#include "dispatch/entries.def"

    .section .note.GNU-stack, "", @progbits
