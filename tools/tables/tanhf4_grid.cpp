// Grid of single precision tanh: tanh(j/16), j = 0..160, rounded to nearest binary32.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j <= 160; ++j) {
        const Real t = Real::apply(mpfr_tanh, Real(j / 16.0));
        std::printf("0x%08" PRIX32 ",\n", bits(t.to_float()));
    }
}
