// Logarithms of the double precision power: L_i = log2(c_0/c_i), less 1 for i >= 512, i = 0..1024; hi is L_i
// cut off to 21 significant bits, lo is L_i - hi rounded to nearest: the pair has a relative error below
// 2^-73.
#include "pow2_logarithm.h"

using namespace zelk::generate;

int main()
{
    for (int i = 0; i <= 1024; ++i) {
        const Real L = Real::apply(mpfr_log2, c_0() / c(i)) - Real(i >= 512 ? 1.0 : 0.0);
        const Real hi = L.leading(21);
        const Real lo = L - hi;
        std::printf("{0x%016" PRIX64 ", 0x%016" PRIX64 "},\n", bits(hi.to_double()), bits(lo.to_double()));
    }
}
