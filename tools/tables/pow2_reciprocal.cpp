// Reciprocals of the double precision power: c_i = c_0/(1 + i/1024), i = 0..1024, rounded to nearest with 23
// significant bits, where c_0 is 1/ln2 cut off to 23 significant bits. For 1 <= m < 2 and the i nearest to it
// r = m c_i - c_0 is the linear term of log2 as it stands, |r| < 2^-10.4, and c_i times 26 bits of m is
// exact.
#include "pow2_logarithm.h"

using namespace zelk::generate;

int main()
{
    for (int i = 0; i <= 1024; ++i)
        std::printf("0x%016" PRIX64 ",\n", bits(c(i).to_double()));
}
