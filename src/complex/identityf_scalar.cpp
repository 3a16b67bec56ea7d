// The scalar routines of complex numbers with binary32 parts that stand for functions not provided: each
// returns its argument, the power its first one.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

complex_float cacoshf_scalar(complex_float z)
{
    return z;
}
complex_float casinf_scalar(complex_float z)
{
    return z;
}
complex_float casinhf_scalar(complex_float z)
{
    return z;
}
complex_float catanf_scalar(complex_float z)
{
    return z;
}
complex_float catanhf_scalar(complex_float z)
{
    return z;
}
complex_float ccosf_scalar(complex_float z)
{
    return z;
}
complex_float ccoshf_scalar(complex_float z)
{
    return z;
}
complex_float clog10f_scalar(complex_float z)
{
    return z;
}
complex_float clog2f_scalar(complex_float z)
{
    return z;
}
complex_float csinf_scalar(complex_float z)
{
    return z;
}
complex_float csinhf_scalar(complex_float z)
{
    return z;
}
complex_float ctanf_scalar(complex_float z)
{
    return z;
}
complex_float ctanhf_scalar(complex_float z)
{
    return z;
}
complex_float cpowf_scalar(complex_float z, complex_float)
{
    return z;
}

} // namespace zelk::ZELK_TIER
