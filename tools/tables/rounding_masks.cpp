// Masks of the integral part of a binary64, by its number of integral bits k = 0..53: k = 0 keeps the sign
// bit alone, k >= 1 the sign, the exponent and the k - 1 fraction bits of weight 1 or more.
#include "table_writer.h"

int main()
{
    for (int k = 0; k <= 53; ++k) {
        const std::uint64_t mask = k == 0 ? std::uint64_t{1} << 63 : ~std::uint64_t{0} << (53 - k);
        std::printf("0x%016" PRIX64 ",\n", mask);
    }
}
