// void zelk_call(CallFrame*): calls frame->target with the vector registers, the pointer argument, the MXCSR and
// the registers that the convention preserves as the frame says, and stores into the frame what comes back. The x87
// rounds as the MXCSR says.
// Offsets are those of CallFrame in call.h, the same on both targets.

#define IN 0
#define OUT 48
#define TARGET 80
#define POINTER 88
#define KEPT_IN 96
#define KEPT_OUT 224
#define GENERAL_IN 352
#define GENERAL_OUT 400
#define MXCSR_IN 448
#define MXCSR_OUT 452
#define X87_CONTROL_OUT 456
#define X87_STATUS_OUT 460
#define X87_TAG_OUT 464
#define STACK_SHIFT 468
#define STACK_DELTA 472

    .text
    .globl zelk_call
    .type zelk_call, @function

#if defined(__x86_64__)

zelk_call:
    .cfi_startproc
    pushq %rbx
    pushq %rbp
    pushq %r12
    pushq %r13
    pushq %r14
    pushq %r15
    subq $56, %rsp
    .cfi_def_cfa_offset 112
    movq %rdi, (%rsp)
    stmxcsr 8(%rsp)
    fninit
    movaps IN(%rdi), %xmm0
    movaps IN+16(%rdi), %xmm1
    movaps IN+32(%rdi), %xmm2
    movaps KEPT_IN(%rdi), %xmm8
    movaps KEPT_IN+16(%rdi), %xmm9
    movaps KEPT_IN+32(%rdi), %xmm10
    movaps KEPT_IN+48(%rdi), %xmm11
    movaps KEPT_IN+64(%rdi), %xmm12
    movaps KEPT_IN+80(%rdi), %xmm13
    movaps KEPT_IN+96(%rdi), %xmm14
    movaps KEPT_IN+112(%rdi), %xmm15
    movq GENERAL_IN(%rdi), %rbx
    movq GENERAL_IN+8(%rdi), %rbp
    movq GENERAL_IN+16(%rdi), %r12
    movq GENERAL_IN+24(%rdi), %r13
    movq GENERAL_IN+32(%rdi), %r14
    movq GENERAL_IN+40(%rdi), %r15
    ldmxcsr MXCSR_IN(%rdi)
    movl MXCSR_IN(%rdi), %eax
    shrl $3, %eax
    andl $0xC00, %eax
    orl $0x37F, %eax
    movl %eax, 24(%rsp)
    fldcw 24(%rsp)
    movq TARGET(%rdi), %rax
    movq POINTER(%rdi), %rdi
    movq %rsp, 16(%rsp)
    call *%rax
    movq (%rsp), %rdi
    stmxcsr MXCSR_OUT(%rdi)
    ldmxcsr 8(%rsp)
    movaps %xmm0, OUT(%rdi)
    movaps %xmm1, OUT+16(%rdi)
    movaps %xmm8, KEPT_OUT(%rdi)
    movaps %xmm9, KEPT_OUT+16(%rdi)
    movaps %xmm10, KEPT_OUT+32(%rdi)
    movaps %xmm11, KEPT_OUT+48(%rdi)
    movaps %xmm12, KEPT_OUT+64(%rdi)
    movaps %xmm13, KEPT_OUT+80(%rdi)
    movaps %xmm14, KEPT_OUT+96(%rdi)
    movaps %xmm15, KEPT_OUT+112(%rdi)
    movq %rbx, GENERAL_OUT(%rdi)
    movq %rbp, GENERAL_OUT+8(%rdi)
    movq %r12, GENERAL_OUT+16(%rdi)
    movq %r13, GENERAL_OUT+24(%rdi)
    movq %r14, GENERAL_OUT+32(%rdi)
    movq %r15, GENERAL_OUT+40(%rdi)
    movq %rsp, %rax
    subq 16(%rsp), %rax
    movl %eax, STACK_DELTA(%rdi)
    fnstenv 20(%rsp)
    movl 20(%rsp), %eax
    movl %eax, X87_CONTROL_OUT(%rdi)
    movl 24(%rsp), %eax
    movl %eax, X87_STATUS_OUT(%rdi)
    movl 28(%rsp), %eax
    movl %eax, X87_TAG_OUT(%rdi)
    fninit
    addq $56, %rsp
    .cfi_def_cfa_offset 56
    popq %r15
    popq %r14
    popq %r13
    popq %r12
    popq %rbp
    popq %rbx
    .cfi_def_cfa_offset 8
    ret
    .cfi_endproc

#else

zelk_call:
    .cfi_startproc
    pushl %ebp
    .cfi_def_cfa_offset 8
    .cfi_offset %ebp, -8
    movl %esp, %ebp
    .cfi_def_cfa_register %ebp
    pushl %ebx
    pushl %esi
    pushl %edi
    movl 8(%ebp), %ecx
    // The callee finds its stack shifted by 0, 4, 8 or 12 bytes from 16-byte alignment.
    subl $96, %esp
    andl $-16, %esp
    subl STACK_SHIFT(%ecx), %esp
    movl %ecx, 8(%esp)
    movl %ebp, 12(%esp)
    stmxcsr 16(%esp)
    fninit
    movaps IN(%ecx), %xmm0
    movaps IN+16(%ecx), %xmm1
    movaps IN+32(%ecx), %xmm2
    movl GENERAL_IN(%ecx), %ebx
    movl GENERAL_IN+8(%ecx), %ebp
    movl GENERAL_IN+16(%ecx), %esi
    movl GENERAL_IN+24(%ecx), %edi
    movl POINTER(%ecx), %eax
    movl %eax, (%esp)
    movl %esp, 20(%esp)
    ldmxcsr MXCSR_IN(%ecx)
    movl MXCSR_IN(%ecx), %eax
    shrl $3, %eax
    andl $0xC00, %eax
    orl $0x37F, %eax
    movl %eax, 24(%esp)
    fldcw 24(%esp)
    call *TARGET(%ecx)
    movl 8(%esp), %ecx
    stmxcsr MXCSR_OUT(%ecx)
    ldmxcsr 16(%esp)
    movaps %xmm0, OUT(%ecx)
    movaps %xmm1, OUT+16(%ecx)
    movl %ebx, GENERAL_OUT(%ecx)
    movl %ebp, GENERAL_OUT+8(%ecx)
    movl %esi, GENERAL_OUT+16(%ecx)
    movl %edi, GENERAL_OUT+24(%ecx)
    movl %esp, %eax
    subl 20(%esp), %eax
    movl %eax, STACK_DELTA(%ecx)
    fnstenv 24(%esp)
    movl 24(%esp), %eax
    movl %eax, X87_CONTROL_OUT(%ecx)
    movl 28(%esp), %eax
    movl %eax, X87_STATUS_OUT(%ecx)
    movl 32(%esp), %eax
    movl %eax, X87_TAG_OUT(%ecx)
    fninit
    movl 12(%esp), %ebp
    leal -12(%ebp), %esp
    popl %edi
    popl %esi
    popl %ebx
    popl %ebp
    .cfi_restore %ebp
    .cfi_def_cfa %esp, 4
    ret
    .cfi_endproc

#endif
    .size zelk_call, . - zelk_call
    .section .note.GNU-stack, "", @progbits
