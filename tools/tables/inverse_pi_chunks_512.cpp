// 128/pi for the scalar single precision tangent and sine-cosine pair, which use x 128/pi modulo 512.
#include "inverse_pi_chunks.h"

int main()
{
    zelk::generate::print_inverse_pi_chunks(9);
}
