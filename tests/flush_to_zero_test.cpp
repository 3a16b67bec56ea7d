// Flush to zero and denormals are zero: nothing that is a number without them becomes a NaN with them. The
// one exception is known: where two arguments or parts that both count as zero are divided.
#include "call.h"
#include "entries.h"
#include "exact.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace zelk::test {
namespace {

constexpr std::uint32_t denormals_are_zero = 1u << 6;
constexpr std::uint32_t flush_to_zero = 1u << 15;

Vec128 call_with(const Kernel& kernel, const Vec128& a, const Vec128& b, std::uint32_t bits, Vec128& second)
{
    CallFrame frame{};
    alignas(16) Vec128 stored;
    frame.in[0] = a;
    frame.in[1] = b;
    frame.target = reinterpret_cast<std::uintptr_t>(kernel.address);
    frame.pointer = reinterpret_cast<std::uintptr_t>(&stored);
    frame.mxcsr_in = 0x1F80 | bits;
    zelk_call(&frame);
    EXPECT_EQ(frame.mxcsr_out & ~0x3Fu, frame.mxcsr_in) << kernel.symbol;
    second = frame.out[1];
    return frame.out[0];
}

bool is_nan(const Entry& entry, const Vec128& v, unsigned lane)
{
    return entry.lanes == Lanes::d2 ? std::isnan(v.d[lane]) : std::isnan(v.f[lane]);
}

// Numbers of every exponent, subnormal ones often, in every company.
std::uint64_t pattern(const Entry& entry, Random& random)
{
    const std::uint64_t bits = random.next();
    const bool is_subnormal = random.next() % 4 == 0;
    if (entry.lanes == Lanes::d2) {
        if (is_subnormal) return bits & 0x800FFFFFFFFFFFFF;
        return (bits & 0x7FF0000000000000) == 0x7FF0000000000000 ? bits & 0x8FFFFFFFFFFFFFFF : bits;
    }
    if (is_subnormal) return bits & 0x807FFFFF;
    return (bits & 0x7F800000) == 0x7F800000 ? bits & 0x8FFFFFFF : bits & 0xFFFFFFFF;
}

// Functions that divide their arguments or parts by each other.
bool divides_arguments(const Entry& entry)
{
    for (const char* const name : {"atan2f4", "atan22", "clogf2", "csqrtf2"})
        if (entry.name == name) return true;
    return false;
}
bool is_subnormal_or_zero(const Entry& entry, const Vec128& v, unsigned lane)
{
    return entry.lanes == Lanes::d2 ? !(std::fabs(v.d[lane]) >= 0x1p-1022)
                                    : !(std::fabs(v.f[lane]) >= 0x1p-126f);
}
bool is_quotient_of_zeros(const Entry& entry, const Vec128& a, const Vec128& b, unsigned lane)
{
    if (!divides_arguments(entry)) return false;
    const bool is_complex = entry.lanes == Lanes::c2;
    return is_subnormal_or_zero(entry, a, lane) &&
           is_subnormal_or_zero(entry, is_complex ? a : b, is_complex ? lane ^ 1 : lane);
}

TEST(FlushToZero, MakesNoNaNs)
{
    for (const Entry& entry : entries()) {
        const bool is_integer = entry.lanes == Lanes::i4 || entry.lanes == Lanes::u4;
        for (const Kernel& kernel : entry.kernels) {
            Random random(11);
            for (int i = 0; i < 6000; ++i) {
                Vec128 a;
                Vec128 b;
                for (Vec128* const v : {&a, &b})
                    for (unsigned lane = 0; lane < lane_count(entry.lanes); ++lane) {
                        const std::uint64_t bits = is_integer ? random.next() | 1 : pattern(entry, random);
                        if (entry.lanes == Lanes::d2)
                            v->q[lane] = bits;
                        else
                            v->u[lane] = static_cast<std::uint32_t>(bits);
                    }
                Vec128 second;
                const Vec128 plain = call_with(kernel, a, b, 0, second);
                for (const std::uint32_t bits :
                     {denormals_are_zero, flush_to_zero, flush_to_zero | denormals_are_zero}) {
                    Vec128 flushed_second;
                    const Vec128 flushed = call_with(kernel, a, b, bits, flushed_second);
                    if (is_integer) {
                        ASSERT_TRUE(same_bits(flushed, plain)) << kernel.symbol << hex(a) << hex(b);
                        continue;
                    }
                    for (unsigned lane = 0; lane < lane_count(entry.lanes); ++lane) {
                        const bool daz = bits & denormals_are_zero;
                        if (daz && is_quotient_of_zeros(entry, a, b, lane)) continue;
                        ASSERT_TRUE(!is_nan(entry, flushed, lane) || is_nan(entry, plain, lane))
                            << kernel.symbol << ' ' << hex(a) << ' ' << hex(b) << " gives " << hex(flushed)
                            << ", without " << hex(plain) << ", MXCSR " << std::hex << bits;
                    }
                    if (entry.results == Results::one) continue;
                    for (unsigned lane = 0; lane < lane_count(entry.lanes); ++lane)
                        ASSERT_TRUE(!is_nan(entry, flushed_second, lane) || is_nan(entry, second, lane))
                            << kernel.symbol << ' ' << hex(a);
                }
            }
        }
    }
}

} // namespace
} // namespace zelk::test
