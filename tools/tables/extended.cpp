// The exported tables, one per run, named by the argument. Hexadecimal literals are exact.
//
//   r_j       the multiple of 2^-11 nearest to 1/(1 + (j + 0.5)/256)
//   hi, lo    hi the binary64 nearest to the value, lo the binary64 nearest to value - hi
//   log       lo first, and hi cut to the upper 32 bits of a binary64 (sign, exponent and 20 fraction bits),
//   so
//             that n * ln2 + hi is exact when ln2 is cut likewise
#include "table_writer.h"

#include <cstdlib>
#include <string_view>

using namespace zelk::generate;

namespace {

Real reciprocal(int j)
{
    Real scaled = Real(0x1p11) / (Real(1.0) + (Real(j) + Real(0.5)) / Real(256.0));
    mpfr_rint(scaled.get(), scaled.get(), MPFR_RNDN);
    return scaled / Real(0x1p11);
}

Real minus_log(const Real& x)
{
    return Real(0.0) - Real::apply(mpfr_log, x);
}

// "hi, lo"
void print_pair(const Real& value)
{
    const double hi = value.to_double();
    std::printf("%a, %a", hi, (value - Real(hi)).to_double());
}

void print_row(const Real& value)
{
    std::printf("{");
    print_pair(value);
    std::printf("},\n");
}

void print_low_first(const Real& value)
{
    const double hi = value.leading(21).to_double();
    std::printf("{%a, %a},\n", (value - Real(hi)).to_double(), hi);
}

// Angle in units of half a turn of the j-th point along x = 1, y = 1, x = -1; multiples of a quarter of pi
// exactly.
Real angle_over_pi(int j)
{
    if (j % 128 == 0) return Real(j) / Real(512.0);
    const Real step(0x1p-7);
    const Real x = j < 128 ? Real(1.0) : j < 384 ? Real(256 - j) * step : Real(-1.0);
    const Real y = j < 128 ? Real(j) * step : j < 384 ? Real(1.0) : Real(512 - j) * step;
    return Real::apply(mpfr_atan2, y, x) / pi();
}

// sin and cos of j degrees; the rational ones exactly.
Real sin_degrees(int j)
{
    if (j % 180 == 0) return Real(0.0);
    if (j == 30) return Real(0.5);
    if (j == 90) return Real(1.0);
    return sin(Real(j) * pi() / Real(180.0));
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view table = argc == 2 ? argv[1] : "";
    if (table == "rcp" || table == "double_rcp") {
        for (int j = 0; j < 256; ++j)
            std::printf(table == "rcp" ? "%af,\n" : "%a,\n", reciprocal(j).to_double());
    } else if (table == "log") {
        for (int j = 0; j < 256; ++j)
            print_low_first(minus_log(reciprocal(j)));
    } else if (table == "logl") {
        for (int j = 0; j < 256; ++j)
            print_row(minus_log(reciprocal(j)));
    } else if (table == "expl") {
        for (int j = 0; j <= 256; ++j)
            print_row(Real::apply(mpfr_exp2, Real(j - 128) / Real(256.0)));
    } else if (table == "atanl") {
        for (int j = 0; j <= 512; ++j)
            print_row(angle_over_pi(j) * pi());
    } else if (table == "atandl") {
        for (int j = 0; j <= 512; ++j)
            print_row(angle_over_pi(j) * Real(180.0));
    } else if (table == "sindl_cosdl") {
        for (int j = 0; j < 90; ++j) {
            std::printf("{{");
            print_pair(sin_degrees(j));
            std::printf("}, {");
            print_pair(sin_degrees(90 - j));
            std::printf("}},\n");
        }
    } else {
        std::fprintf(stderr, "usage: %s rcp|double_rcp|log|logl|expl|atanl|atandl|sindl_cosdl\n", argv[0]);
        return EXIT_FAILURE;
    }
}
