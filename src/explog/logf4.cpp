// ln x on four binary32 lanes.
// Method: x = 2^e y, ln x = e ln 2 + ln y, ln y by an odd series in (y - 1)/(y + 1).
// Arguments that are not positive, normal and finite: all lanes once more, with the special ones blended in.
#include "explog/logf4.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE float4 ln_of_normal(float4 x)
{
    const auto& k = tables::logf4;
    const auto [e, f, s] = split_at_sqrt2(x);
    return add_series(e * k.s_fLn2, f, s, tables::logf4_e);
}

[[gnu::noinline, gnu::cold]] static float4 spec_sln4(float4 x)
{
    const auto lanes = replace_special_lanes(x, tables::logf4_e.s_fDenoAdd);
    return restore_special_lanes(ln_of_normal(lanes.argument), lanes);
}

float4 logf4(float4 x)
{
    if (!all_positive_normal(x)) [[unlikely]]
        return spec_sln4(x);
    return ln_of_normal(x);
}

} // namespace zelk::ZELK_TIER
