// Grid of the scalar single precision sine: a_j = cos(j pi/128) (pi/128)^3 / 6, b_j = sin(j pi/128)
// (pi/128)^2 / 2, j = 0..64, rounded to nearest binary64. At the ends of the quadrant the zeros are exact.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    const Real step = pi() / Real(128.0);
    for (int j = 0; j <= 64; ++j) {
        const Real theta = Real(j) * step;
        Real a = (cos(theta)) * step * step * step / Real(6.0);
        Real b = (sin(theta)) * step * step / Real(2.0);
        if (j == 0) b = Real(0.0);
        if (j == 64) a = Real(0.0);
        std::printf("{0x%016" PRIX64 ", 0x%016" PRIX64 "},\n", bits(a.to_double()), bits(b.to_double()));
    }
}
