// The dispatchers, the masked entries and the aliases: made from the rows of entries.def.
//
// A dispatcher loads the processor-feature word, tests it against the mask of each tier that its row names, and
// jumps to the first tier that has a bit set. Arguments, pointer and stack stay as the caller left them, so the
// kernel returns straight to the caller. A word of 0 means that the features are not determined yet: the
// dispatcher has them determined, which preserves all argument registers, and starts again.
//
// A masked entry replaces the inactive lanes of its arguments by values inside the function's domain and jumps to
// the dispatcher, or returns at once when no lane is active. A mask lane is active by its sign bit; the blend works
// on bits. An alias is one jump.

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

.macro dispatcher symbol:req, lanes:req, tiers:vararg
    .globl \symbol
    .type \symbol, @function
    .p2align 6
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

// Sets ZF when no lane of the mask is active.
.macro test_mask lanes:req, mask:req
    .ifc \lanes, d2
    movmskpd \mask, %eax
    .else
    movmskps \mask, %eax
    .endif
    testl %eax, %eax
.endm

// argument = (argument AND mask) OR (constant AND NOT mask); the mask is lost.
.macro blend argument:req, mask:req, constant:req
    andps \mask, \argument
    andnps \constant(%rip), \mask
    orps \mask, \argument
.endm
.macro prepare_constants
.endm

#define ZELK_TIERS_OF_(column) ZELK_TIERS_##column
#define ZELK_TARGET_TIERS(x86_64, i386) ZELK_TIERS_OF_(x86_64)

#else

.macro dispatcher symbol:req, lanes:req, tiers:vararg
    .globl \symbol
    .type \symbol, @function
    .p2align 6
\symbol:
    .cfi_startproc
    _CET_ENDBR
1:  call .Lload_pc
    addl $_GLOBAL_OFFSET_TABLE_, %eax
    movl __brava_cpu_indicator@GOT(%eax), %eax
    movl (%eax), %eax
    .irp tier, \tiers
    testl $mask_\tier, %eax
    jnz \symbol\().\tier
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

// Sets ZF when no lane of the mask is active.
.macro test_mask lanes:req, mask:req
    .ifc \lanes, d2
    movmskpd \mask, %ecx
    .else
    movmskps \mask, %ecx
    .endif
    testl %ecx, %ecx
.endm

// argument = (argument AND mask) OR (constant AND NOT mask); the mask is lost. EAX holds the GOT's address.
.macro blend argument:req, mask:req, constant:req
    andps \mask, \argument
    andnps \constant@GOTOFF(%eax), \mask
    orps \mask, \argument
.endm
.macro prepare_constants
    call .Lload_pc
    addl $_GLOBAL_OFFSET_TABLE_, %eax
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

// Kinds of masked entry. One-argument functions have the mask in XMM1, two-argument functions in XMM2. `a` and `b`
// name the constants for inactive lanes; XMM3 is free in every convention.

// Z: zeroed; with no active lane the zeroed argument, and for two results the mask itself, are in place.
.macro masked_Z symbol:req, lanes:req, a:req, b:req
    test_mask \lanes, %xmm1
    andps %xmm1, %xmm0
    jnz \symbol
    ret
.endm

// S: substituted; with no active lane the blended argument.
.macro masked_S symbol:req, lanes:req, a:req, b:req
    prepare_constants
    test_mask \lanes, %xmm1
    blend %xmm0, %xmm1, \a
    jnz \symbol
    ret
.endm

// D: substituted; with no active lane the caller's argument.
.macro masked_D symbol:req, lanes:req, a:req, b:req
    test_mask \lanes, %xmm1
    jz 1f
    prepare_constants
    blend %xmm0, %xmm1, \a
    jmp \symbol
1:  ret
.endm

// D2: both substituted; with no active lane the caller's first argument.
.macro masked_D2 symbol:req, lanes:req, a:req, b:req
    test_mask \lanes, %xmm2
    jz 1f
    prepare_constants
    movaps %xmm2, %xmm3
    blend %xmm0, %xmm2, \a
    blend %xmm1, %xmm3, \b
    jmp \symbol
1:  ret
.endm

// T, I: first argument zeroed, second substituted.
.macro masked_T symbol:req, lanes:req, a:req, b:req
    prepare_constants
    test_mask \lanes, %xmm2
    andps %xmm2, %xmm0
    blend %xmm1, %xmm2, \b
    jnz \symbol
    ret
.endm
.macro masked_I symbol:req, lanes:req, a:req, b:req
    masked_T \symbol, \lanes, \a, \b
.endm

// P: first argument substituted, second zeroed.
.macro masked_P symbol:req, lanes:req, a:req, b:req
    prepare_constants
    test_mask \lanes, %xmm2
    andps %xmm2, %xmm1
    blend %xmm0, %xmm2, \a
    jnz \symbol
    ret
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

.macro masked name:req, symbol:req, lanes:req, kind:req, a:req, b:req
    lane_constant .L\name\()_a, \lanes, \a
    lane_constant .L\name\()_b, \lanes, \b
    function \name
    masked_\kind \symbol, \lanes, .L\name\()_a, .L\name\()_b
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
    dispatcher \symbol, scalar, \tiers
    .endif
.endm
#define ZELK_TIERS_plain plain

// Names of the masked entries: the two-result pointer forms follow the alias grammar.
#define ZELK_MASKED_1(symbol) symbol##_mask
#define ZELK_MASKED_2(symbol) symbol##_mask
#define ZELK_MASKED_P(symbol) symbol##Mask

#define ZELK_ENTRY(kernel, symbol, lanes, args, results, x86_64, i386, mask, a, b, alias)                    \
    dispatcher symbol, lanes, ZELK_TARGET_TIERS(x86_64, i386) ;                                              \
    masked ZELK_MASKED_##results(symbol), symbol, lanes, mask, a, b ;                                        \
    alias_pair alias, symbol, ZELK_MASKED_##results(symbol)
#define ZELK_SCALAR(kernel, signature, x86_64, i386)                                                         \
    scalar_dispatcher kernel, ZELK_TARGET_TIERS(x86_64, i386)

    .text
#include "dispatch/entries.def"

    .section .note.GNU-stack, "", @progbits
