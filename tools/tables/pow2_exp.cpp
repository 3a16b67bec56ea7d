// Powers of the double precision power: 2^(j/128), j = 0..127, as hi + lo, each rounded to nearest: the pair
// has a relative error below 2^-106.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j < 128; ++j) {
        const Real power = Real::apply(mpfr_exp2, Real(j / 128.0));
        const Real hi(power.to_double());
        const Real lo = power - hi;
        std::printf("{0x%016" PRIX64 ", 0x%016" PRIX64 "},\n", bits(hi.to_double()), bits(lo.to_double()));
    }
}
