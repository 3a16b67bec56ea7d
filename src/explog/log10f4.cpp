// log10 x on four binary32 lanes.
// Method: x = 2^e y, log10 x = e log10 2 + log10 y, log10 y by an odd series in (y - 1)/(y + 1).
// Arguments that are not positive, normal and finite: all lanes once more, with the special ones blended in.
#include "dispatch/kernels.h"
#include "explog/logf4.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE float4 log10_of_normal(float4 x)
{
    const auto& k = tables::logf4;
    const auto [e, f, s] = split_at_sqrt2(x);
    return add_series(e * k.s_fLg2, f * k.s_fInvLn10, s, tables::logf4_10);
}

[[gnu::noinline, gnu::cold]] static float4 spec_slog104(float4 x)
{
    const auto lanes = replace_special_lanes(x, tables::logf4_10.s_fDenoAdd);
    return restore_special_lanes(log10_of_normal(lanes.argument), lanes);
}

float4 log10f4(float4 x)
{
    if (!all_positive_normal(x)) [[unlikely]]
        return spec_slog104(x);
    return log10_of_normal(x);
}

} // namespace zelk::ZELK_TIER
