// (ln 2)^2/2 2^(j/64), j = 0..63, rounded to nearest binary32, in rows of two words whose second is zero.
// Seven entries are one unit in the last place below that: 2^x is defined by them bit for bit.
#include "table_writer.h"

#include <algorithm>
#include <iterator>

using namespace zelk::generate;

int main()
{
    constexpr int one_unit_low[] = {12, 20, 29, 30, 52, 58, 60};
    Real ln2;
    mpfr_const_log2(ln2.get(), MPFR_RNDN);
    for (int j = 0; j < 64; ++j) {
        const Real value = ln2 * ln2 / Real(2.0) * Real::apply(mpfr_exp2, Real(j / 64.0));
        const bool low =
            std::find(std::begin(one_unit_low), std::end(one_unit_low), j) != std::end(one_unit_low);
        std::printf("{0x%08" PRIX32 ", 0x%08" PRIX32 "},\n", bits(value.to_float()) - (low ? 1 : 0), 0u);
    }
}
