// How the table modules write constants: from bit patterns; vectors have the value in every lane.
#pragma once

#include "tables/constant.h"

namespace zelk::tables {

constexpr float4 splat32(std::uint32_t bits)
{
    const float x = __builtin_bit_cast(float, bits);
    return float4{x, x, x, x};
}
constexpr double2 splat64(std::uint64_t bits)
{
    const double x = __builtin_bit_cast(double, bits);
    return double2{x, x};
}
constexpr double binary64(std::uint64_t bits)
{
    return __builtin_bit_cast(double, bits);
}
constexpr int4 mask32(std::uint32_t bits)
{
    const auto x = static_cast<std::int32_t>(bits);
    return int4{x, x, x, x};
}
constexpr long2 mask64(std::uint64_t bits)
{
    const auto x = static_cast<std::int64_t>(bits);
    return long2{x, x};
}

// Table modules are hidden and defined apart from the kernels that read them: a constant that the compiler
// can see it rebuilds at each use, one that it can't see becomes a 16-byte memory operand.
#define ZELK_TABLE extern const __attribute__((visibility("hidden")))

} // namespace zelk::tables
