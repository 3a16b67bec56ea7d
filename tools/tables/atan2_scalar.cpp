// Constants of the scalar arc tangent of two arguments, rounded to the 64 significant bits of the extended
// format: 0, pi, pi/2, pi/2, the Taylor coefficients of arctan r beyond the first (-1/3, 1/5,
// -1/7, 1/9; the next term is below 2^-73 of arctan r for |r| <= 1/128) and atan(j/64) with j/64, j = 0..64.
#include "table_writer.h"

#include <initializer_list>

using namespace zelk::generate;

namespace {

long double rounded(const Real& x)
{
    return mpfr_get_ld(x.get(), MPFR_RNDN);
}

} // namespace

int main()
{
    std::printf(".base = {\n");
    for (const double quarters : {0.0, 2.0, 1.0, 1.0})
        std::printf("    %LaL,\n", rounded(pi() * Real(quarters) / Real(2.0)));
    std::printf("},\n");
    std::printf(".taylor = {\n");
    for (const int divisor : {-3, 5, -7, 9})
        std::printf("    %LaL,\n", rounded(Real(1.0) / Real(divisor)));
    std::printf("},\n.row = {\n");
    for (int j = 0; j <= 64; ++j)
        std::printf("    {%LaL, %a},\n", rounded(Real::apply(mpfr_atan, Real(j) / Real(64.0))), j / 64.0);
    std::printf("},\n");
}
