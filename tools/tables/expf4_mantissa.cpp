// The 23-bit mantissa field of 2^(j/64), j = 0..63, rounded to nearest binary32, in rows of two words whose
// second is zero: the table of the exponential in all tiers but A.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j < 64; ++j) {
        const Real value = Real::apply(mpfr_exp2, Real(j / 64.0));
        std::printf("{0x%08" PRIX32 ", 0x%08" PRIX32 "},\n", bits(value.to_float()) & 0x007FFFFF, 0u);
    }
}
