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
    const auto bits = __builtin_bit_cast(std::uint64_t, x);
    const std::uint64_t top = bits >> 63 != 0 ? 0xBFF0000000000000 : 0x4470000000000000;
    const std::uint64_t bottom = 0x3BD0000000000000 | (bits & 0x8000000000000000);
    if (bits - bottom >= top - bottom) [[unlikely]]
        return static_cast<double>(log1pl_scalar(x));
#if defined(__SSE2__)
    if (__builtin_fabs(x) <= 0x1p-8) return x + log1p_rest(x);
    return log1p_binary64(x);
#else
    return static_cast<double>(logarithm_of_one_plus(x));
#endif
}

} // namespace zelk::ZELK_TIER
