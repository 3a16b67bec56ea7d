// Powers of the vector complex exponential: 2^(j/128) = hi (1 + lo), j = 0..127, hi rounded to nearest
// binary32, lo likewise.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j < 128; ++j) {
        const Real power = Real::apply(mpfr_exp2, Real(j / 128.0));
        const float hi = power.to_float();
        const float lo = ((power - Real(hi)) / Real(hi)).to_float();
        std::printf("{0x%08" PRIX32 ", 0x%08" PRIX32 "},\n", bits(hi), bits(lo));
    }
}
