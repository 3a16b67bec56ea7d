// What the circular functions of 80-bit numbers read, one table per run, named by the argument.
//
//   two_over_pi  the binary expansion of 2/pi in words of 32 bits: three words of zeros, then 519 words,
//                which is enough for the nine that the largest number needs
//   sines        sin(j pi/512), j = 0..256: hi the nearest binary64, lo the one nearest to the rest
//   arc_sine     asin c and sqrt(1 - c^2) for c = (j + 1/2)/256, j = 32..239: hi, lo each, hi the binary64
//                nearest to the value, lo the one nearest to the rest
//   constants    pi/2 (its leading 32 bits and the rest), pi/512 (its leading 35 bits and the rest), 512/pi,
//                pi/180 and 180/pi (two numbers each), and the Taylor coefficients of sine and cosine. The
//                first neglected term of an offset |t| <= pi/360 is below 2^-69 of 1, of the sine of
//                |r| < 0.29 below 2^-76 of it
#include "table_writer.h"

#include <cstdlib>
#include <string_view>

using namespace zelk::generate;

namespace {

void print_two_over_pi()
{
    constexpr int words = 519;
    mpfr_t value;
    mpfr_init2(value, 32 * words + 64);
    mpfr_const_pi(value, MPFR_RNDN);
    mpfr_ui_div(value, 2, value, MPFR_RNDN);
    for (int i = 0; i < 3; ++i)
        std::puts("0x00000000,");
    for (int i = 0; i < words; ++i) {
        mpfr_mul_2ui(value, value, 32, MPFR_RNDN);
        const unsigned long word = mpfr_get_ui(value, MPFR_RNDZ);
        mpfr_sub_ui(value, value, word, MPFR_RNDN);
        std::printf("0x%08lX,\n", word);
    }
    mpfr_clear(value);
}

// Two binary64.
void print_hi_lo(const Real& value)
{
    const double hi = value.to_double();
    std::printf("%a, %a", hi, (value - Real(hi)).to_double());
}

long double to_extended(const Real& value)
{
    return mpfr_get_ld(value.get(), MPFR_RNDN);
}
Real from_extended(long double x)
{
    Real result;
    mpfr_set_ld(result.get(), x, MPFR_RNDN);
    return result;
}

void print_extended(const char* name, const Real& value)
{
    std::printf(".%s = %LaL,\n", name, to_extended(value));
}
void print_pair(const char* name, const Real& value)
{
    const long double hi = to_extended(value);
    std::printf(".%s = {%LaL, %LaL},\n", name, hi, to_extended(value - from_extended(hi)));
}

Real one_over(long n)
{
    return Real(1.0) / Real(static_cast<double>(n));
}

void print_constants()
{
    const Real half_pi = pi() / Real(2.0);
    print_extended("half_pi", half_pi);
    print_extended("half_pi_head", half_pi.leading(32));
    print_extended("half_pi_rest", half_pi - half_pi.leading(32));
    print_extended("quarter_pi", half_pi / Real(2.0));
    print_pair("radians_per_degree", pi() / Real(180.0));
    const Real degree = pi() / Real(180.0);
    std::printf(".degree_head = %a,\n", degree.leading(32).to_double());
    print_extended("degree_rest", degree - degree.leading(32));
    print_extended("degree", degree);
    std::printf(".C180byPi = {");
    print_hi_lo(Real(180.0) / pi());
    std::puts("},");
    const Real step = half_pi / Real(256.0);
    std::printf(".step_head = %a,\n", step.leading(35).to_double());
    print_extended("step_rest", step - step.leading(35));
    std::printf(".steps_per_radian = %a,\n", (Real(1.0) / step).to_double());
    print_extended("sine_3", one_over(-6));
    std::printf(".sine_5 = %a,\n", one_over(120).to_double());
    std::printf(".sine_7 = %a,\n", one_over(-5040).to_double());
    std::printf(".sine_9 = %a,\n", one_over(362880).to_double());
    std::printf(".sine_11 = %a,\n", one_over(-39916800).to_double());
    std::printf(".sine_13 = %a,\n", one_over(6227020800).to_double());
    std::printf(".sine_15 = %a,\n", one_over(-1307674368000).to_double());
    std::printf(".cosine_2 = %a,\n", one_over(-2).to_double());
    std::printf(".cosine_4 = %a,\n", one_over(24).to_double());
    std::printf(".cosine_6 = %a,\n", one_over(-720).to_double());
    std::printf(".cosine_8 = %a,\n", one_over(40320).to_double());
    std::printf(".cosine_10 = %a,\n", one_over(-3628800).to_double());
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view table = argc == 2 ? argv[1] : "";
    if (table == "two_over_pi") {
        print_two_over_pi();
    } else if (table == "sines") {
        for (int j = 0; j <= 256; ++j) {
            std::printf("{");
            if (j == 256)
                print_hi_lo(Real(1.0));
            else
                print_hi_lo(sin(pi() * Real(j) / Real(512.0)));
            std::printf("},\n");
        }
    } else if (table == "arc_sine") {
        for (int j = 32; j < 240; ++j) {
            const Real c = (Real(j) + Real(0.5)) / Real(256.0);
            std::printf("{{");
            print_hi_lo(Real::apply(mpfr_asin, c));
            std::printf("}, {");
            print_hi_lo(Real::apply(mpfr_sqrt, Real(1.0) - c * c));
            std::printf("}},\n");
        }
    } else if (table == "constants") {
        print_constants();
    } else {
        std::fprintf(stderr, "usage: %s two_over_pi|sines|arc_sine|constants\n", argv[0]);
        return EXIT_FAILURE;
    }
}
