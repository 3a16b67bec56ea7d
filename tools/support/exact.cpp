#include "exact.h"

namespace zelk {

std::uint64_t Random::next()
{
    // splitmix64
    std::uint64_t z = state_ += 0x9E3779B97F4A7C15;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return z ^ (z >> 31);
}

} // namespace zelk
