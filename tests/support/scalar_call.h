// Calling a scalar routine as its row in the list says: a breach of the platform's convention fails the test.
#pragma once

#include "scalar_routine.h"

namespace zelk::test {

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

// The tiers of a routine alone; the one of a name without tiers.
std::vector<ScalarKernel> tier_kernels(const std::string& name);
ScalarKernel scalar_kernel(const std::string& name);

// A routine's argument in its own format; the imaginary part counts for z and c.
Argument argument_of(const ScalarKernel& kernel, const Bits80& x, const Bits80& imaginary = {});

// Every call is checked: the x87 stack holds the result and nothing else, the control words and the stack
// pointer are as before, and nothing is written beside the results.
ScalarResult call_scalar(const ScalarKernel& kernel, const Argument& x, const Argument& y = {},
                         const Environment& environment = {});

} // namespace zelk::test
