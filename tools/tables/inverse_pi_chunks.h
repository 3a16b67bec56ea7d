// 128/pi in 15 chunks for scalar routines on binary32. Chunk k serves exponents (biased) 142 + 8k to 149 +
// 8k: x is a multiple of 2^(8k - 8) there, so bits of weight `modulus` 2^(8 - 8k) and above contribute
// multiples of the modulus and are dropped. What is left is split into H1 (29 significant bits, cut off), H2
// (13, cut off) and the rest, rounded to nearest; H1 and H2 are packed into one word.
#pragma once

#include "table_writer.h"

namespace zelk::generate {

inline void print_inverse_pi_chunks(int modulus_log2)
{
    const Real full = Real(128.0) / pi();
    for (int k = 0; k < 15; ++k) {
        Real chunk(full);
        if (k >= 2) {
            Real modulus(1.0);
            mpfr_mul_2si(modulus.get(), modulus.get(), modulus_log2 + 8 - 8 * k, MPFR_RNDN);
            mpfr_fmod(chunk.get(), full.get(), modulus.get(), MPFR_RNDN);
        }
        const Real H1 = chunk.leading(29);
        const Real H2 = (chunk - H1).leading(13);
        const Real low = chunk - H1 - H2;
        const std::uint64_t packed = bits(H1.to_double()) | bits(H2.to_double()) >> 40;
        std::printf("{0x%016" PRIX64 ", 0x%016" PRIX64 "},\n", packed, bits(low.to_double()));
    }
}

} // namespace zelk::generate
