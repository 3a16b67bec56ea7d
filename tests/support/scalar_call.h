// Calling a scalar routine as its row in the list says, with everything that a test wants to see of the call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "call.h"

namespace zelk::test {

// A number of the 80-bit format as bits, so that signalling NaNs and odd encodings survive.
struct Bits80 {
    std::uint64_t significand = 0; // integer bit included
    std::uint16_t sign_exponent = 0;
    bool operator==(const Bits80&) const = default;
};
Bits80 bits80(const long double& x);
long double number(const Bits80& bits);
std::string hex(const Bits80& bits);
inline constexpr bool is_nan(const Bits80& x) // of a supported encoding
{
    return (x.sign_exponent & 0x7FFF) == 0x7FFF && x.significand > std::uint64_t{1} << 63;
}
inline constexpr bool is_quiet_nan(const Bits80& x)
{
    return (x.sign_exponent & 0x7FFF) == 0x7FFF && x.significand >> 62 == 3;
}

inline constexpr std::uint64_t integer_bit = std::uint64_t{1} << 63;
namespace encoding {
inline constexpr Bits80 plus_zero = {0, 0};
inline constexpr Bits80 minus_zero = {0, 0x8000};
inline constexpr Bits80 plus_one = {integer_bit, 0x3FFF};
inline constexpr Bits80 minus_one = {integer_bit, 0xBFFF};
inline constexpr Bits80 plus_infinity = {integer_bit, 0x7FFF};
inline constexpr Bits80 minus_infinity = {integer_bit, 0xFFFF};
inline constexpr Bits80 largest = {~std::uint64_t{0}, 0x7FFE};
inline constexpr Bits80 minus_largest = {~std::uint64_t{0}, 0xFFFE};
inline constexpr Bits80 smallest_normal = {integer_bit, 1};
inline constexpr Bits80 largest_denormal = {integer_bit - 1, 0};
inline constexpr Bits80 smallest_denormal = {1, 0};
inline constexpr Bits80 minus_smallest_denormal = {1, 0x8000};
// Stands for 1.5 * 2^-16382, the normal number of the same significand.
inline constexpr Bits80 pseudo_denormal = {0xC000000000000000, 0};
inline constexpr Bits80 quiet_nan = {0xC000000000000001, 0x7FFF};
inline constexpr Bits80 negative_quiet_nan = {0xC0000000DEADBEEF, 0xFFFF};
inline constexpr Bits80 signalling_nan = {0xA000000000000001, 0x7FFF};
// Encodings that the processor does not support: every arithmetic operand of them is invalid.
inline constexpr Bits80 unnormal = {0x4000000000000000, 0x3FFF};
inline constexpr Bits80 unnormal_zero = {0, 0x4000};
inline constexpr Bits80 negative_unnormal = {0x7FFFFFFFFFFFFFFF, 0xC005};
inline constexpr Bits80 pseudo_infinity = {0, 0x7FFF};
inline constexpr Bits80 pseudo_nan = {0x4000000000000000, 0x7FFF};
} // namespace encoding

// One exported routine: a single implementation, or the dispatcher or one tier of several.
struct ScalarKernel {
    std::string symbol;
    std::string signature; // as in the list: "l_ll", "v_lLL", ...
    const void* address;
    char tier = 0; // 0: the dispatcher, or a single implementation
};
// All of one name, the dispatcher first; its tiers alone.
std::vector<ScalarKernel> scalar_kernels(const std::string& name);
std::vector<ScalarKernel> tier_kernels(const std::string& name);
// The one of a name without tiers.
ScalarKernel scalar_kernel(const std::string& name);

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

// A routine's argument in its own format; the imaginary part counts for z and c.
Argument argument_of(const ScalarKernel& kernel, const Bits80& x, const Bits80& imaginary = {});

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
    long double value() const { return number(extended); }
    double value_d() const;
};

// Every call is checked: the x87 stack holds the result and nothing else, the control words and the stack
// pointer are as before, and nothing is written beside the results.
ScalarResult call_scalar(const ScalarKernel& kernel, const Argument& x, const Argument& y = {},
                         const Environment& environment = {});

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

} // namespace zelk::test
