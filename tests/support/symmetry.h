// Symmetry about zero, and agreement of all tiers, bit for bit.
#pragma once

#include "call.h"
#include "entries.h"

#include <gtest/gtest.h>

#include <span>
#include <vector>

namespace zelk::test {

enum class Symmetry { odd, even, none };

inline Vec128 vector_of(const float* x)
{
    return floats(x[0], x[1], x[2], x[3]);
}
inline Vec128 vector_of(const double* x)
{
    return doubles(x[0], x[1]);
}
inline Vec128 negated(Vec128 v, float)
{
    for (auto& lane : v.u)
        lane ^= 0x80000000;
    return v;
}
inline Vec128 negated(Vec128 v, double)
{
    for (auto& lane : v.q)
        lane ^= std::uint64_t{1} << 63;
    return v;
}

inline Rounding opposite(Rounding rounding)
{
    if (rounding == Rounding::down) return Rounding::up;
    return rounding == Rounding::up ? Rounding::down : rounding;
}

// Every kernel gives the same bits for x, and for -x those that the symmetry asks for. Kernels that loop over
// the lanes have bits of their own; they round the result with its sign, so that an odd function is odd
// between opposite modes.
template <class T>
void check_symmetry(std::span<const Kernel> kernels, Symmetry symmetry, const std::vector<T>& arguments,
                    std::span<const Rounding> roundings = all_roundings)
{
    constexpr std::size_t lanes = 16 / sizeof(T);
    for (const Rounding rounding : roundings)
        for (std::size_t i = 0; i + lanes <= arguments.size(); i += lanes) {
            const Vec128 x = vector_of(&arguments[i]);
            const Vec128 common = call(kernels.back().address, x, {}, {}, nullptr, rounding).first;
            for (const Kernel& kernel : kernels) {
                const auto at = [&](const Vec128& argument, Rounding mode) {
                    return call(kernel.address, argument, {}, {}, nullptr, mode).first;
                };
                const Rounding mode = kernel.lane_loop ? opposite(rounding) : rounding;
                const Vec128 expected = kernel.lane_loop ? at(x, rounding) : common;
                const Vec128 mirrored = symmetry == Symmetry::none ? expected
                                        : symmetry == Symmetry::even
                                            ? at(negated(x, T{}), rounding)
                                            : negated(at(negated(x, T{}), mode), T{});
                ASSERT_TRUE(same_bits(at(x, rounding), expected) && same_bits(mirrored, expected))
                    << kernel.symbol << ' ' << hex(x) << ", rounding " << static_cast<unsigned>(rounding)
                    << ": " << hex(at(x, rounding)) << ", mirrored " << hex(mirrored) << ", expected "
                    << hex(expected);
            }
        }
}

} // namespace zelk::test
