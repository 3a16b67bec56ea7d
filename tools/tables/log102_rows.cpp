// Rows of double precision log10 x, 64 intervals: b = round(2048/(1 + i/64))/2048 times 111/256 twice, -log10
// b in two parts. |m b - 1| < 2^-6.9 for every m that rounds to point i.
#include "log_rows.h"

int main()
{
    zelk::generate::print_log_rows(64, -11, 0x1.bcp-2, mpfr_log10);
}
