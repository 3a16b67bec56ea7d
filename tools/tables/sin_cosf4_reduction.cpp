// 128/pi in 15 chunks for the scalar single precision sine and cosine. Chunk k serves binary32 exponents
// (biased) 142 + 8k to 149 + 8k: bits of weight 2^(16 - 8k) and above are dropped, as x is a multiple of
// 2^(8k - 8) there and they contribute multiples of 256. What is left is split into H1 (29 significant bits,
// cut off), H2 (13, cut off) and the rest, rounded to nearest; H1 and H2 are packed into one word.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    const Real full = Real(128.0) / pi();
    for (int k = 0; k < 15; ++k) {
        Real chunk(full);
        if (k >= 2) {
            Real modulus(1.0);
            mpfr_mul_2si(modulus.get(), modulus.get(), 16 - 8 * k, MPFR_RNDN);
            mpfr_fmod(chunk.get(), full.get(), modulus.get(), MPFR_RNDN);
        }
        const Real H1 = chunk.leading(29);
        const Real H2 = (chunk - H1).leading(13);
        const Real low = chunk - H1 - H2;
        const std::uint64_t packed = bits(H1.to_double()) | bits(H2.to_double()) >> 40;
        std::printf("{0x%016" PRIX64 ", 0x%016" PRIX64 "},\n", packed, bits(low.to_double()));
    }
}
