// 2^(j/64), j = 0..63, in two binary32 words for the tier A exponential: the value cut off to a multiple of
// 2^-17 (18 significant bits), and the rest, rounded to nearest. Together they are within 2^-42 of the value.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j < 64; ++j) {
        const Real value = Real::apply(mpfr_exp2, Real(j / 64.0));
        const Real high = value.leading(18);
        const Real low = value - high;
        std::printf("{0x%08" PRIX32 ", 0x%08" PRIX32 "},\n", bits(high.to_float()), bits(low.to_float()));
    }
}
