// 128/pi for the scalar single precision sine and cosine, which use x 128/pi modulo 256.
#include "inverse_pi_chunks.h"

int main()
{
    zelk::generate::print_inverse_pi_chunks(8);
}
