// Fractions of double precision e^x: the 52 fraction bits of 2^(j/64), j = 0..63, rounded to nearest
// binary64, under a zero sign and exponent field.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    constexpr std::uint64_t fraction_mask = (std::uint64_t{1} << 52) - 1;
    for (int j = 0; j < 64; ++j) {
        const Real power = Real::apply(mpfr_exp2, Real(j / 64.0));
        std::printf("0x%016" PRIX64 ",\n", bits(power.to_double()) & fraction_mask);
    }
}
