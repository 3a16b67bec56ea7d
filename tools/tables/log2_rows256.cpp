// Rows of double precision ln x, 256 intervals: b = round(4096/(1 + i/256))/4096 twice, -ln b in two parts.
// |m b - 1| < 2^-8.9 for every m that rounds to point i.
#include "log_rows.h"

int main()
{
    zelk::generate::print_log_rows(256, -12, 1.0, mpfr_log);
}
