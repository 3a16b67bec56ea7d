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

// Every kernel gives the same bits for x, and for -x those that the symmetry asks for.
template <class T>
void check_symmetry(std::span<const Kernel> kernels, Symmetry symmetry, const std::vector<T>& arguments,
                    std::span<const Rounding> roundings = all_roundings)
{
    constexpr std::size_t lanes = 16 / sizeof(T);
    for (const Rounding rounding : roundings)
        for (std::size_t i = 0; i + lanes <= arguments.size(); i += lanes) {
            const Vec128 x = vector_of(&arguments[i]);
            const Vec128 expected = call(kernels[0].address, x, {}, {}, nullptr, rounding).first;
            for (const Kernel& kernel : kernels) {
                const auto at = [&](const Vec128& argument) {
                    return call(kernel.address, argument, {}, {}, nullptr, rounding).first;
                };
                const Vec128 mirrored = symmetry == Symmetry::none   ? expected
                                        : symmetry == Symmetry::even ? at(negated(x, T{}))
                                                                     : negated(at(negated(x, T{})), T{});
                ASSERT_TRUE(same_bits(at(x), expected) && same_bits(mirrored, expected))
                    << kernel.symbol << ' ' << hex(x) << ", rounding " << static_cast<unsigned>(rounding)
                    << ": " << hex(at(x)) << ", mirrored " << hex(mirrored) << ", " << kernels[0].symbol
                    << ' ' << hex(expected);
            }
        }
}

} // namespace zelk::test
