// ln x of one double: in binary64 with a low part; without SSE2 the 80-bit function, rounded once more. What
// is not a positive normal number takes the 80-bit function.
#include "dispatch/kernels.h"
#if defined(__SSE2__)
#include "extended/log_binary64.h"
#else
#include "extended/logarithm.h"
#endif

namespace zelk::ZELK_TIER {

double log_scalar(double x)
{
    const auto bits = __builtin_bit_cast(std::uint64_t, x);
    const auto biased_exponent = static_cast<int>(bits >> 52); // the sign above it
    if (static_cast<unsigned>(biased_exponent - 1) >= 0x7FE || bits == 0x3FF0000000000000) [[unlikely]]
        return static_cast<double>(logl_scalar(x));
#if defined(__SSE2__)
    return log_binary64(x);
#else
    return static_cast<double>(
        logarithm_of(x, {bits << 11 | std::uint64_t{1} << 63, biased_exponent - 1023}));
#endif
}

} // namespace zelk::ZELK_TIER
