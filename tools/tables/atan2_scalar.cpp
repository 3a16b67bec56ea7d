// Constants of the scalar arc tangent of two arguments, rounded to the 64 significant bits of the extended
// format: pi, pi/2, the Taylor coefficients of arctan r beyond the first (-1/3, 1/5, -1/7, 1/9; the next term
// is below 2^-73 of arctan r for |r| <= 1/128) and atan(j/64), j = 0..64.
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
    std::printf(".pi = %LaL,\n", rounded(pi()));
    std::printf(".pi_2 = %LaL,\n", rounded(pi() / Real(2.0)));
    std::printf(".taylor = {\n");
    for (const int divisor : {-3, 5, -7, 9})
        std::printf("    %LaL,\n", rounded(Real(1.0) / Real(divisor)));
    std::printf("},\n.angle = {\n");
    for (int j = 0; j <= 64; ++j)
        std::printf("    %LaL,\n", rounded(Real::apply(mpfr_atan, Real(j) / Real(64.0))));
    std::printf("},\n");
}
