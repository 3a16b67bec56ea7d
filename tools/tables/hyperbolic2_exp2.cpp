// Powers 2^(j/64) for double precision sinh, cosh and tanh, j = 0..63, each as hi + lo: hi is 2^(j/64) cut
// off at a multiple of 2^-44, lo the rest rounded to nearest binary64. Entry 64 is 1: the negated exponent of
// entry j takes entry 64 - j, and for j = 0 that is 2^0 once more.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j <= 64; ++j) {
        const Real power = Real::apply(mpfr_exp2, Real(j % 64 / 64.0));
        const Real hi = power.leading(45);
        const Real lo = power - hi;
        std::printf("{0x%016" PRIX64 ", 0x%016" PRIX64 "},\n", bits(hi.to_double()), bits(lo.to_double()));
    }
}
