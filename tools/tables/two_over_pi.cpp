// The binary expansion of 2/pi in 39 words of 32 bits, the last one rounded, between two words of zeros, so
// that a run may start before the first bit, and three that end the reach of the last run.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    constexpr int words = 39;
    Real rest = Real(2.0) / pi();
    const Real weight(0x1p32);
    for (int i = 0; i < 2; ++i)
        std::puts("0x00000000,");
    for (int i = 1; i <= words; ++i) {
        rest = rest * weight;
        Real word;
        mpfr_rint(word.get(), rest.get(), i == words ? MPFR_RNDN : MPFR_RNDZ);
        rest = rest - word;
        std::printf("0x%08" PRIX32 ",\n", static_cast<std::uint32_t>(word.to_double()));
    }
    for (int i = 0; i < 3; ++i)
        std::puts("0x00000000,");
}
