// The scalar routines of complex numbers with binary64 parts that stand for functions not provided: each
// returns its argument, the power its first one.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

complex_double cacosh_scalar(complex_double z)
{
    return z;
}
complex_double casin_scalar(complex_double z)
{
    return z;
}
complex_double casinh_scalar(complex_double z)
{
    return z;
}
complex_double catan_scalar(complex_double z)
{
    return z;
}
complex_double catanh_scalar(complex_double z)
{
    return z;
}
complex_double ccos_scalar(complex_double z)
{
    return z;
}
complex_double ccosh_scalar(complex_double z)
{
    return z;
}
complex_double clog10_scalar(complex_double z)
{
    return z;
}
complex_double clog2_scalar(complex_double z)
{
    return z;
}
complex_double csin_scalar(complex_double z)
{
    return z;
}
complex_double csinh_scalar(complex_double z)
{
    return z;
}
complex_double ctan_scalar(complex_double z)
{
    return z;
}
complex_double ctanh_scalar(complex_double z)
{
    return z;
}
complex_double cpow_scalar(complex_double z, complex_double)
{
    return z;
}

} // namespace zelk::ZELK_TIER
