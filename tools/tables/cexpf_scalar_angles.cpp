// Angles of the scalar single precision complex exponential: sin(j pi/32) and cos(j pi/32), j = 0..63,
// rounded to nearest binary64; the zeros are exact.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j < 64; ++j) {
        const Real angle = pi() * Real(j / 32.0);
        const double sine = j % 32 == 0 ? 0 : sin(angle).to_double();
        const double cosine = j % 32 == 16 ? 0 : cos(angle).to_double();
        std::printf("{%a, %a},\n", sine, cosine);
    }
}
