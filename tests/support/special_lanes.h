// Special arguments beside ordinary ones, in every lane.
#pragma once

#include <span>

#include "call.h"
#include "entries.h"

namespace zelk::test {

// One argument (pair) whose result is known. A NaN expectation takes any quiet NaN; anything else is compared
// bit for bit. `flags` are the loud flags (invalid, divide-by-zero, overflow) that the lane raises, no more,
// no less.
template <class T>
struct Special {
    const char* name;
    T x;
    T expected;
    unsigned flags = 0;
    T y = 0;
};

enum class OrdinaryLanes {
    keep_bits, // lanes beside a special one give what they give in an all-ordinary vector
    any        // they may differ from that (whole-vector hand-overs); their own test judges them
};

// Puts each special argument into each lane beside ordinary ones, and into all lanes, in the given rounding
// modes.
void check_specials(const Kernel& kernel, std::span<const Special<float>> cases, float ordinary_x,
                    OrdinaryLanes ordinary, std::span<const Rounding> roundings = all_roundings,
                    float ordinary_y = 0);
void check_specials(const Kernel& kernel, std::span<const Special<double>> cases, double ordinary_x,
                    OrdinaryLanes ordinary, std::span<const Rounding> roundings = all_roundings,
                    double ordinary_y = 0);

// Every lane on its own: the given bit patterns and their neighbours, two at a time in every arrangement over
// the four lanes. A lane gives the same bits beside any other, and a vector raises the loud flags of its
// lanes, no more, no less.
void check_lanes_independent(const Kernel& kernel, std::span<const std::uint32_t> arguments,
                             std::span<const Rounding> roundings = all_roundings);

// All kernels give the same bits for the same arguments, but for those that loop over the lanes.
void check_same_results(std::span<const Kernel> kernels, std::span<const float> arguments,
                        std::span<const Rounding> roundings = all_roundings);

// Constants, not functions: a function would return them through the x87 stack on i386, which quiets them.
inline constexpr float signalling_nan_f = __builtin_bit_cast(float, 0x7FA00000u);
inline constexpr double signalling_nan_d = __builtin_bit_cast(double, std::uint64_t{0x7FF4000000000000});

} // namespace zelk::test
