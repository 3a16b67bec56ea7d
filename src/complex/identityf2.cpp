// The complex entries that stand for functions not provided: each returns its argument, cpowf2 its first one.
#include "complex/lane_loop.h"

namespace zelk::ZELK_TIER {

float4 cacoshf2(float4 z)
{
    return lane_loop(z, dispatched::cacoshf_scalar);
}
float4 casinf2(float4 z)
{
    return lane_loop(z, dispatched::casinf_scalar);
}
float4 casinhf2(float4 z)
{
    return lane_loop(z, dispatched::casinhf_scalar);
}
float4 catanf2(float4 z)
{
    return lane_loop(z, dispatched::catanf_scalar);
}
float4 catanhf2(float4 z)
{
    return lane_loop(z, dispatched::catanhf_scalar);
}
float4 ccosf2(float4 z)
{
    return lane_loop(z, dispatched::ccosf_scalar);
}
float4 ccoshf2(float4 z)
{
    return lane_loop(z, dispatched::ccoshf_scalar);
}
float4 clog10f2(float4 z)
{
    return lane_loop(z, dispatched::clog10f_scalar);
}
float4 clog2f2(float4 z)
{
    return lane_loop(z, dispatched::clog2f_scalar);
}
float4 csinf2(float4 z)
{
    return lane_loop(z, dispatched::csinf_scalar);
}
float4 csinhf2(float4 z)
{
    return lane_loop(z, dispatched::csinhf_scalar);
}
float4 ctanf2(float4 z)
{
    return lane_loop(z, dispatched::ctanf_scalar);
}
float4 ctanhf2(float4 z)
{
    return lane_loop(z, dispatched::ctanhf_scalar);
}
float4 cpowf2(float4 z, float4 w)
{
    return lane_loop(z, w, dispatched::cpowf_scalar);
}

} // namespace zelk::ZELK_TIER
