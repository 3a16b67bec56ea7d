// Powers of double precision 2^x: 2^(j/128), j = 0..127, rounded to nearest binary64.
#include "table_writer.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j < 128; ++j)
        std::printf("%a,\n", Real::apply(mpfr_exp2, Real(j / 128.0)).to_double());
}
