// The dispatchers, the masked entries and the aliases: made from the rows of entries.def.
//
// A dispatcher loads the processor-feature word, tests it against the mask of each tier that its row names, and
// jumps to the first tier that has a bit set. Arguments, pointer and stack stay as the caller left them, so the
// kernel returns straight to the caller. A word of 0 means that the features are not determined yet: the
// dispatcher has them determined, which preserves all argument registers, and starts again.
//
// A masked entry replaces the inactive lanes of its arguments by values inside the function's domain and goes on as
// the dispatcher does, or returns at once when no lane is active. A mask lane is active by its sign bit; the blend
// works on bits. An alias is one jump.

#include <cet.h>

// Masks of the tiers over the feature word.
.set mask_A, 0xFFFFFFFF
.set mask_J, 0xFFFFFE00
.set mask_L, 0xFFFFF800
.set mask_N, 0xFFFFE000

#define ZELK_TIERS_A A
#define ZELK_TIERS_LA L, A
#define ZELK_TIERS_JA J, A
#define ZELK_TIERS_JA_hidden J, A
#define ZELK_TIERS_NA N, A
#define ZELK_TIERS_NLA N, L, A
#define ZELK_TIERS_LJA L, J, A
#define ZELK_TIERS_NJA N, J, A
#define ZELK_TIERS_NLJA N, L, J, A

#if defined(__x86_64__)

.macro load_got
.endm

// Goes to the label if all bits of the mask are set: nothing is to be replaced. In the power, which keeps the
// processor's reorder buffer full, the wait for a blend costs more than this.
.macro skip_if_all_active mask:req, label:req
    pcmpeqd %xmm3, %xmm3
    pcmpeqd \mask, %xmm3
    pmovmskb %xmm3, %ecx
    cmpl $0xFFFF, %ecx
    je \label
.endm

// Goes to the first tier that the processor has; falls through if the features are not determined.
.macro select_tier symbol:req, tiers:vararg
    movq __brava_cpu_indicator@GOTPCREL(%rip), %rax
    movl (%rax), %eax
    .irp tier, \tiers
    testl $mask_\tier, %eax
    jnz \symbol\().\tier
    .endr
.endm

.macro determine_features
    subq $8, %rsp
    .cfi_adjust_cfa_offset 8
    call *__brava_cpu_indicator_init@GOTPCREL(%rip)
    addq $8, %rsp
    .cfi_adjust_cfa_offset -8
.endm

// argument = (argument AND mask) OR (constant AND NOT mask); the mask is lost.
.macro blend argument:req, mask:req, constant:req
    andps \mask, \argument
    andnps \constant(%rip), \mask
    orps \mask, \argument
.endm
#define ZELK_TIERS_OF_(column) ZELK_TIERS_##column
#define ZELK_TARGET_TIERS(x86_64, i386) ZELK_TIERS_OF_(x86_64)

#else

// The GOT's address.
.macro load_got
    call .Lload_pc
    addl $_GLOBAL_OFFSET_TABLE_, %eax
.endm

.macro skip_if_all_active mask:req, label:req
.endm

// Goes to the first tier that the processor has; falls through if the features are not determined. EAX holds the
// GOT's address.
.macro select_tier symbol:req, tiers:vararg
    movl __brava_cpu_indicator@GOT(%eax), %eax
    movl (%eax), %eax
    .irp tier, \tiers
    testl $mask_\tier, %eax
    jnz \symbol\().\tier
    .endr
.endm

.macro determine_features
    // The caller may hold the stack at any multiple of 4; the initialisation gets it aligned to 16.
    pushl %ebp
    .cfi_def_cfa_offset 8
    .cfi_offset %ebp, -8
    movl %esp, %ebp
    .cfi_def_cfa_register %ebp
    andl $-16, %esp
    load_got
    call *__brava_cpu_indicator_init@GOT(%eax)
    leave
    .cfi_restore %ebp
    .cfi_def_cfa %esp, 4
.endm

// argument = (argument AND mask) OR (constant AND NOT mask); the mask is lost. EAX holds the GOT's address.
.macro blend argument:req, mask:req, constant:req
    andps \mask, \argument
    andnps \constant@GOTOFF(%eax), \mask
    orps \mask, \argument
.endm
#define ZELK_TIERS_OF_(column) ZELK_TIERS_##column
#define ZELK_TARGET_TIERS(x86_64, i386) ZELK_TIERS_OF_(i386)

    .text
    .p2align 6
.Lload_pc:
    .cfi_startproc
    movl (%esp), %eax
    ret
    .cfi_endproc

#endif

.macro dispatcher symbol:req, tiers:vararg
    .globl \symbol
    .type \symbol, @function
    .p2align 6
\symbol:
    .cfi_startproc
    _CET_ENDBR
1:  load_got
    select_tier \symbol, \tiers
    determine_features
    jmp 1b
    .cfi_endproc
    .size \symbol, . - \symbol
.endm

// One 16-byte constant with `value` in every lane; the linker merges equal ones.
.macro lane_constant name:req, lanes:req, value:req
    .section .rodata.cst16, "aM", @progbits, 16
    .p2align 4
\name:
    .ifc \lanes, d2
    .double \value, \value
    .else
    .ifc \lanes, f4
    .float \value, \value, \value, \value
    .else
    .ifc \lanes, c2
    .float \value, \value, \value, \value
    .else
    .long \value, \value, \value, \value
    .endif
    .endif
    .endif
    .text
.endm

// The active lanes of the mask, and ZF set when there is none.
.macro collect_mask lanes:req, mask:req
    .ifc \lanes, d2
    movmskpd \mask, %ecx
    .else
    movmskps \mask, %ecx
    .endif
.endm
.macro test_mask
    testl %ecx, %ecx
.endm

// Kinds of masked entry. One-argument functions have the mask in XMM1, two-argument functions in XMM2. `a` and `b`
// name the constants for inactive lanes; XMM3 is free in every convention. Without an active lane they go to 1.

// Z: zeroed; with no active lane the zeroed argument, and for two results the mask itself, are in place.
.macro masked_Z lanes:req, a:req, b:req
    collect_mask \lanes, %xmm1
    andps %xmm1, %xmm0
    test_mask
    jz 1f
    load_got
.endm

// S: substituted; with no active lane the blended argument.
.macro masked_S lanes:req, a:req, b:req
    load_got
    collect_mask \lanes, %xmm1
    blend %xmm0, %xmm1, \a
    test_mask
    jz 1f
.endm

// D: substituted; with no active lane the caller's argument.
.macro masked_D lanes:req, a:req, b:req
    collect_mask \lanes, %xmm1
    test_mask
    jz 1f
    load_got
    blend %xmm0, %xmm1, \a
.endm

// D2: both substituted; with no active lane the caller's first argument.
.macro masked_D2 lanes:req, a:req, b:req
    collect_mask \lanes, %xmm2
    test_mask
    jz 1f
    load_got
    movaps %xmm2, %xmm3
    blend %xmm0, %xmm2, \a
    blend %xmm1, %xmm3, \b
.endm

// T, I: first argument zeroed, second substituted.
.macro masked_T lanes:req, a:req, b:req
    load_got
    collect_mask \lanes, %xmm2
    andps %xmm2, %xmm0
    blend %xmm1, %xmm2, \b
    test_mask
    jz 1f
.endm
.macro masked_I lanes:req, a:req, b:req
    masked_T \lanes, \a, \b
.endm

// P: first argument substituted, second zeroed.
.macro masked_P lanes:req, a:req, b:req
    skip_if_all_active %xmm2, 2f
    load_got
    collect_mask \lanes, %xmm2
    andps %xmm2, %xmm1
    blend %xmm0, %xmm2, \a
    test_mask
    jz 1f
2:
.endm

.macro function name:req
    .globl \name
    .type \name, @function
    .p2align 6
\name:
    .cfi_startproc
    _CET_ENDBR
.endm
.macro end_function name:req
    .cfi_endproc
    .size \name, . - \name
.endm

.macro masked name:req, symbol:req, lanes:req, kind:req, a:req, b:req, tiers:vararg
    lane_constant .L\name\()_a, \lanes, \a
    lane_constant .L\name\()_b, \lanes, \b
    function \name
    masked_\kind \lanes, .L\name\()_a, .L\name\()_b
    select_tier \symbol, \tiers
    jmp \symbol
1:  ret
    end_function \name
.endm

.macro forwarding name:req, symbol:req
    function \name
    jmp \symbol
    end_function \name
.endm

.macro alias_pair alias:req, symbol:req, masked:req
    .ifnc \alias, none
    forwarding \alias, \symbol
    forwarding \alias\()Mask, \masked
    .endif
.endm

// A scalar routine with one implementation has no dispatcher.
.macro scalar_dispatcher symbol:req, tiers:vararg
    .ifnc \tiers, plain
    dispatcher \symbol, \tiers
    .endif
.endm
#define ZELK_TIERS_plain plain

// Names of the masked entries: the two-result pointer forms follow the alias grammar.
#define ZELK_MASKED_1(symbol) symbol##_mask
#define ZELK_MASKED_2(symbol) symbol##_mask
#define ZELK_MASKED_P(symbol) symbol##Mask

#define ZELK_ENTRY(kernel, symbol, lanes, args, results, x86_64, i386, mask, a, b, alias)                    \
    dispatcher symbol, ZELK_TARGET_TIERS(x86_64, i386) ;                                                     \
    masked ZELK_MASKED_##results(symbol), symbol, lanes, mask, a, b, ZELK_TARGET_TIERS(x86_64, i386) ;       \
    alias_pair alias, symbol, ZELK_MASKED_##results(symbol)
#define ZELK_SCALAR(kernel, signature, x86_64, i386)                                                         \
    scalar_dispatcher kernel, ZELK_TARGET_TIERS(x86_64, i386)

    .text
#include "dispatch/entries.def"

    .section .note.GNU-stack, "", @progbits
