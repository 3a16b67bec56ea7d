// Rows of double precision ln x, 64 intervals: b = round(4096/(1 + i/64))/4096 twice, -ln b in two parts.
// |m b - 1| <= 2^-7 for every m that rounds to point i.
#include "log_rows.h"

int main()
{
    zelk::generate::print_log_rows(64, -12, 1.0, mpfr_log);
}
