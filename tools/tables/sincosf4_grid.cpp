// Grid of the scalar single precision sine-cosine pair: cos(j pi/128), sin(j pi/128), j = 0..64, rounded to
// nearest binary64. At the ends of the quadrant the zeros are exact.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j <= 64; ++j) {
        const Real theta = Real(j) * pi() / Real(128.0);
        const double c = j == 64 ? 0.0 : cos(theta).to_double();
        const double s = j == 0 ? 0.0 : sin(theta).to_double();
        std::printf("{0x%016" PRIX64 ", 0x%016" PRIX64 "},\n", bits(c), bits(s));
    }
}
