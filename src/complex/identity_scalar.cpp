// The complex scalar routines that stand for functions not provided: each returns its argument, the powers
// their first one.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

complex_double cacosh_scalar(complex_double z)
{
    return z;
}
complex_float cacoshf_scalar(complex_float z)
{
    return z;
}
complex_double casin_scalar(complex_double z)
{
    return z;
}
complex_float casinf_scalar(complex_float z)
{
    return z;
}
complex_double casinh_scalar(complex_double z)
{
    return z;
}
complex_float casinhf_scalar(complex_float z)
{
    return z;
}
complex_double catan_scalar(complex_double z)
{
    return z;
}
complex_float catanf_scalar(complex_float z)
{
    return z;
}
complex_double catanh_scalar(complex_double z)
{
    return z;
}
complex_float catanhf_scalar(complex_float z)
{
    return z;
}
complex_double ccos_scalar(complex_double z)
{
    return z;
}
complex_float ccosf_scalar(complex_float z)
{
    return z;
}
complex_double ccosh_scalar(complex_double z)
{
    return z;
}
complex_float ccoshf_scalar(complex_float z)
{
    return z;
}
complex_double clog10_scalar(complex_double z)
{
    return z;
}
complex_float clog10f_scalar(complex_float z)
{
    return z;
}
complex_double clog2_scalar(complex_double z)
{
    return z;
}
complex_float clog2f_scalar(complex_float z)
{
    return z;
}
complex_double csin_scalar(complex_double z)
{
    return z;
}
complex_float csinf_scalar(complex_float z)
{
    return z;
}
complex_double csinh_scalar(complex_double z)
{
    return z;
}
complex_float csinhf_scalar(complex_float z)
{
    return z;
}
complex_double ctan_scalar(complex_double z)
{
    return z;
}
complex_float ctanf_scalar(complex_float z)
{
    return z;
}
complex_double ctanh_scalar(complex_double z)
{
    return z;
}
complex_float ctanhf_scalar(complex_float z)
{
    return z;
}
complex_double cpow_scalar(complex_double z, complex_double)
{
    return z;
}
complex_float cpowf_scalar(complex_float z, complex_float)
{
    return z;
}

} // namespace zelk::ZELK_TIER
