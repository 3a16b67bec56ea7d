// r_j = round(4096 / (1 + j/256 + 2^-12)) / 4096, a 12-bit reciprocal of 1 + j/256, and T_j = (1/r_j)^(1/3),
// rounded to nearest binary32; j = 0..255.
#include "cbrt_quadratic.h"

#include <cmath>

using namespace zelk::generate;

int main()
{
    for (int j = 0; j < 256; ++j) {
        const double r = std::nearbyint(4096.0 / (1.0 + j / 256.0 + 0x1p-12)) / 4096.0;
        std::printf("{0x%08" PRIX32 ", 0x%08" PRIX32 "},\n", bits(static_cast<float>(r)),
                    bits(cube_root(Real(1.0) / Real(r)).to_float()));
    }
}
