// Calling a scalar routine as its row in the list says, with everything that can be seen of the call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "call.h"

namespace zelk {

// A number of the 80-bit format as bits, so that signalling NaNs and odd encodings survive.
struct Bits80 {
    std::uint64_t significand = 0; // integer bit included
    std::uint16_t sign_exponent = 0;
    bool operator==(const Bits80&) const = default;
};
Bits80 bits80(const long double& x);
long double number(const Bits80& bits);
std::string hex(const Bits80& bits);

// One exported routine: a single implementation, or the dispatcher or one tier of several.
struct ScalarKernel {
    std::string symbol;
    std::string signature; // as in the list: "l_ll", "v_lLL", ...
    const void* address;
    char tier = 0; // 0: the dispatcher, or a single implementation
};
// All of one name, the dispatcher first.
std::vector<ScalarKernel> scalar_kernels(const std::string& name);

// The bits of a complex number: binary64 parts (z), or binary32 parts in the low halves (c).
struct ComplexBits {
    std::uint64_t re = 0;
    std::uint64_t im = 0;
    bool operator==(const ComplexBits&) const = default;
};
ComplexBits complex_bits(const double& re, const double& im);
ComplexBits complex_bits(const float& re, const float& im);

// An argument: 80 bits for l, 64 for d, 32 for f, two of them for z and c.
struct Argument {
    Argument() = default;
    Argument(const Bits80& x) : extended(x) {}
    Argument(const long double& x) : extended(bits80(x)) {}
    Argument(const double& x);
    Argument(const float& x);
    Argument(const ComplexBits& z) : narrow(z.re), imaginary(z.im) {}
    static Argument of_bits(std::uint64_t bits);
    Bits80 extended;
    std::uint64_t narrow = 0;    // d and f; the real part of z and c
    std::uint64_t imaginary = 0; // z and c
};

struct Environment {
    Rounding rounding = Rounding::nearest;
    unsigned precision = 64;  // x87 significand bits: 64, 53 or 24
    unsigned stack_shift = 0; // i386: 0, 4, 8 or 12
};

struct ScalarResult {
    Bits80 extended;          // l
    std::uint64_t narrow = 0; // d, f
    ComplexBits complex;      // z, c
    std::int32_t integer = 0; // i
    Bits80 stored[2];         // L, in order of the pointers
    double stored_doubles[2]; // D
    unsigned flags;           // raised in either unit
    unsigned x87_flags;
    unsigned sse_flags;
    std::string breaches; // of the convention: the x87 stack, the control words, the stack pointer, memory
    long double value() const { return number(extended); }
    double value_d() const;
};

// The signature is that of the list.
ScalarResult call_routine(const void* address, std::string_view signature, const Argument& x,
                          const Argument& y = {}, const Environment& environment = {});

struct ScalarFrame {
    unsigned char stack[48];
    std::uint64_t xmm_in[4];
    std::uint64_t pointers[2]; // x86-64: rdi, rsi
    std::uint64_t target;
    std::uint64_t xmm_out[2];
    std::uint32_t integer_out[2]; // eax, edx
    unsigned char result[16];     // top of the x87 stack, if there is one
    std::uint32_t mxcsr_in;
    std::uint32_t mxcsr_out;
    std::uint32_t control_in;
    std::uint32_t control_out;
    std::uint32_t status_out;
    std::uint32_t tag_out;
    std::uint32_t stack_delta;
    std::uint32_t stack_shift;
};
static_assert(offsetof(ScalarFrame, target) == 96 && offsetof(ScalarFrame, result) == 128 &&
              offsetof(ScalarFrame, stack_shift) == 172);
extern "C" void zelk_call_scalar(ScalarFrame* frame);

} // namespace zelk
