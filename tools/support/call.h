// Calling an entry as its convention says, with everything that can be observed of the call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace zelk {

union alignas(16) Vec128 {
    std::uint32_t u[4] = {};
    std::int32_t i[4];
    float f[4];
    double d[2];
    std::uint64_t q[2];
};

Vec128 floats(float a, float b, float c, float d);
Vec128 doubles(double a, double b);
Vec128 words(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d);
Vec128 quads(std::uint64_t a, std::uint64_t b);
inline bool same_bits(const Vec128& a, const Vec128& b)
{
    return a.q[0] == b.q[0] && a.q[1] == b.q[1];
}
std::string hex(const Vec128& v);

// MXCSR bits.
enum Flag : unsigned {
    flag_invalid = 1,
    flag_denormal = 2,
    flag_divide_by_zero = 4,
    flag_overflow = 8,
    flag_underflow = 16,
    flag_inexact = 32,
};
// The flags that special arguments are judged by; the rest follows from rounding.
inline constexpr unsigned loud_flags = flag_invalid | flag_divide_by_zero | flag_overflow;
std::string flag_names(unsigned flags);

enum class Rounding : unsigned { nearest = 0, down = 1, up = 2, zero = 3 };
inline constexpr Rounding all_roundings[] = {Rounding::nearest, Rounding::down, Rounding::up, Rounding::zero};

struct CallFrame {
    Vec128 in[3];
    Vec128 out[2];
    std::uint64_t target;
    std::uint64_t pointer;
    Vec128 kept_in[8]; // XMM8 to XMM15 (x86-64)
    Vec128 kept_out[8];
    std::uint64_t general_in[6]; // rbx rbp r12 r13 r14 r15, or ebx ebp esi edi
    std::uint64_t general_out[6];
    std::uint32_t mxcsr_in;
    std::uint32_t mxcsr_out;
    std::uint32_t x87_control_out;
    std::uint32_t x87_status_out;
    std::uint32_t x87_tag_out; // 0xFFFF in the low half: the x87 stack is empty
    std::uint32_t stack_shift; // i386: 0, 4, 8 or 12
    std::uint32_t stack_delta; // 0: the callee left the stack pointer where it was
};
static_assert(offsetof(CallFrame, target) == 80 && offsetof(CallFrame, kept_out) == 224 &&
              offsetof(CallFrame, mxcsr_in) == 448 && offsetof(CallFrame, stack_delta) == 472);

extern "C" void zelk_call(CallFrame* frame);

struct Result {
    Vec128 first;
    Vec128 second;  // XMM1 as the call left it
    unsigned flags; // raised by the call
};

Result call(const void* target, const Vec128& a, const Vec128& b = {}, const Vec128& mask = {},
            void* pointer = nullptr, Rounding rounding = Rounding::nearest);

} // namespace zelk
