// ln x of one double: the 80-bit function, rounded once more.
#include "dispatch/kernels.h"
#include "extended/logarithm.h"

namespace zelk::ZELK_TIER {

double log_scalar(double x)
{
    const auto bits = __builtin_bit_cast(std::uint64_t, x);
    const auto biased_exponent = static_cast<int>(bits >> 52); // the sign above it
    if (static_cast<unsigned>(biased_exponent - 1) >= 0x7FE) [[unlikely]]
        return static_cast<double>(logl_scalar(x));
    return static_cast<double>(
        logarithm_of(x, {bits << 11 | std::uint64_t{1} << 63, biased_exponent - 1023}));
}

} // namespace zelk::ZELK_TIER
