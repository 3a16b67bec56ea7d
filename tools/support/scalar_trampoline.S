// void zelk_call_scalar(ScalarFrame*): calls frame->target with the stack arguments, XMM0 to XMM3, two pointer
// registers (x86-64), the MXCSR and the x87 control word as the frame says, and stores into the frame what comes
// back. Offsets are those of ScalarFrame in scalar_routine.h, the same on both targets.

#define STACK 0
#define STACK_SIZE 48
#define XMM_IN 48
#define POINTERS 80
#define TARGET 96
#define XMM_OUT 104
#define INTEGER_OUT 120
#define RESULT 128
#define MXCSR_IN 144
#define MXCSR_OUT 148
#define CONTROL_IN 152
#define CONTROL_OUT 156
#define STATUS_OUT 160
#define TAG_OUT 164
#define STACK_DELTA 168
#define STACK_SHIFT 172

    .text
    .globl zelk_call_scalar
    .type zelk_call_scalar, @function

#if defined(__x86_64__)
#define REG(name) %r##name
#else
#define REG(name) %e##name
#endif

// After the call: everything that it left, BX holding the frame; 48 bytes at SP are free.
.macro store_outcome
    movq %xmm0, XMM_OUT(REG(bx))
    movq %xmm1, XMM_OUT+8(REG(bx))
    movl %eax, INTEGER_OUT(REG(bx))
    movl %edx, INTEGER_OUT+4(REG(bx))
    stmxcsr MXCSR_OUT(REG(bx))
    fnstenv (REG(sp))
    movl (REG(sp)), %eax
    movl %eax, CONTROL_OUT(REG(bx))
    movl 4(REG(sp)), %eax
    movl %eax, STATUS_OUT(REG(bx))
    movl 8(REG(sp)), %eax
    movl %eax, TAG_OUT(REG(bx))
    cmpw $-1, %ax
    je 1f
    fstpt RESULT(REG(bx))
1:  fninit
.endm

zelk_call_scalar:
    .cfi_startproc
#if defined(__x86_64__)
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    pushq %rbx
    pushq %r12
    subq $16+STACK_SIZE, %rsp
    movq %rdi, %rbx
    stmxcsr -24(%rbp)
    movups STACK(%rbx), %xmm0
    movups %xmm0, (%rsp)
    movups STACK+16(%rbx), %xmm0
    movups %xmm0, 16(%rsp)
    movups STACK+32(%rbx), %xmm0
    movups %xmm0, 32(%rsp)
    movq %rsp, %r12
    fninit
    fldcw CONTROL_IN(%rbx)
    ldmxcsr MXCSR_IN(%rbx)
    movq XMM_IN(%rbx), %xmm0
    movq XMM_IN+8(%rbx), %xmm1
    movq XMM_IN+16(%rbx), %xmm2
    movq XMM_IN+24(%rbx), %xmm3
    // What a scalar argument leaves in the rest of its register is anything.
    movhps .Lsignalling_nans(%rip), %xmm0
    movhps .Lsignalling_nans(%rip), %xmm1
    movhps .Lsignalling_nans(%rip), %xmm2
    movhps .Lsignalling_nans(%rip), %xmm3
    movq POINTERS(%rbx), %rdi
    movq POINTERS+8(%rbx), %rsi
    call *TARGET(%rbx)
    subq %rsp, %r12
    movl %r12d, STACK_DELTA(%rbx)
    store_outcome
    ldmxcsr -24(%rbp)
    movq -16(%rbp), %r12
    movq -8(%rbp), %rbx
    leave
#else
    pushl %ebp
    .cfi_def_cfa_offset 8
    .cfi_offset %ebp, -8
    movl %esp, %ebp
    .cfi_def_cfa_register %ebp
    pushl %ebx
    pushl %esi
    pushl %eax
    movl 8(%ebp), %ebx
    stmxcsr -12(%ebp)
    // The callee finds its stack shifted by 0, 4, 8 or 12 bytes from 16-byte alignment.
    subl $64+STACK_SIZE, %esp
    andl $-16, %esp
    subl STACK_SHIFT(%ebx), %esp
    movups STACK(%ebx), %xmm0
    movups %xmm0, (%esp)
    movups STACK+16(%ebx), %xmm0
    movups %xmm0, 16(%esp)
    movups STACK+32(%ebx), %xmm0
    movups %xmm0, 32(%esp)
    movl %esp, %esi
    fninit
    fldcw CONTROL_IN(%ebx)
    ldmxcsr MXCSR_IN(%ebx)
    call *TARGET(%ebx)
    subl %esp, %esi
    movl %esi, STACK_DELTA(%ebx)
    store_outcome
    ldmxcsr -12(%ebp)
    movl -8(%ebp), %esi
    movl -4(%ebp), %ebx
    leave
#endif
    .cfi_def_cfa REG(sp), __SIZEOF_POINTER__
    ret
    .cfi_endproc
    .size zelk_call_scalar, . - zelk_call_scalar
#if defined(__x86_64__)
    .section .rodata
    .p2align 3
.Lsignalling_nans:
    .long 0x7FA00000, 0x7FA00000
#endif
    .section .note.GNU-stack, "", @progbits
