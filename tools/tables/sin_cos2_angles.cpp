// Sine and cosine of a_j = j pi/32, j = 0..63, for the scalar double precision sine and cosine, four doubles
// each: cos a_j - cos_hi, rounded to nearest; sin_hi, sin a_j rounded to nearest; sin a_j - sin_hi, rounded
// to 24 bits; cos_hi, a power of two near cos a_j with its sign, so that products with it are exact.
#include "table_writer.h"

#include <cmath>

using namespace zelk::generate;

namespace {

// cos_hi in the first quadrant, j = 0..16.
double power_of_two(int j)
{
    return j <= 7 ? 1.0 : j <= 12 ? 0.5 : j <= 14 ? 0.25 : j == 15 ? 0.125 : 0.0;
}

} // namespace

int main()
{
    for (int j = 0; j < 64; ++j) {
        const bool negative_cosine = j > 16 && j < 48;
        const int from_axis = std::abs((j + 16) % 32 - 16); // distance from the nearest multiple of pi
        const double cos_hi = (negative_cosine ? -1.0 : 1.0) * power_of_two(from_axis);
        const bool on_axis = j % 16 == 0; // sine and cosine are 0, 1 or -1
        const Real angle = Real(j) * pi() / Real(32.0);
        const Real sine = sin(angle);
        const double cos_rem = on_axis ? 0.0 : (cos(angle) - Real(cos_hi)).to_double();
        const double sin_hi = on_axis ? std::round(sine.to_double()) + 0.0 : sine.to_double();
        const double sin_lo = on_axis ? 0.0 : static_cast<double>((sine - Real(sin_hi)).to_float());
        std::printf("{0x%016" PRIX64 ", 0x%016" PRIX64 ", 0x%016" PRIX64 ", 0x%016" PRIX64 "},\n",
                    bits(cos_rem), bits(sin_hi), bits(sin_lo), bits(j % 32 == 16 ? 0.0 : cos_hi));
    }
}
