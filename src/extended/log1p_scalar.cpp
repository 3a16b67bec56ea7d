// ln(1 + x) of one double: in binary64 with a low part; without SSE2 the 80-bit function, rounded once more.
// Tiny and special arguments take the 80-bit function.
#include "dispatch/kernels.h"
#if defined(__SSE2__)
#include "extended/log_binary64.h"
#else
#include "extended/logarithm.h"
#endif

namespace zelk::ZELK_TIER {

double log1p_scalar(double x)
{
    // 2^-66 <= x < 2^72, or -1 < x <= -2^-66.
    const auto upper = static_cast<std::uint32_t>(__builtin_bit_cast(std::uint64_t, x) >> 32);
    if ((upper << 1) - 0x77A00000 >= 0x88E00000 - 0x77A00000 || upper >= 0xBFF00000) [[unlikely]]
        return static_cast<double>(log1pl_scalar(x));
#if defined(__SSE2__)
    if ((upper << 1) < 0x7EE00000) return x + log1p_rest(x); // 2^-8
    return log1p_binary64(x);
#else
    return static_cast<double>(logarithm_of_one_plus(x));
#endif
}

} // namespace zelk::ZELK_TIER
