// The scalar reduction of trig_reduction.h.
// Method: below 2^30, n pi/2 is subtracted in five parts. Beyond, x is multiplied by the pieces of 4/pi (2/pi
// in the sine and cosine modes) that matter: those whose products are multiples of 8 (4) are never formed,
// the integer part of the rest gives the quadrant, and the fraction, summed with its rounding errors, is
// multiplied by pi/4 (pi/2).
#include "trig/trig_reduction.h"

namespace zelk::ZELK_TIER {

enum class Mode { sine, cosine, quadrant };

static std::uint64_t pattern(double x)
{
    return __builtin_bit_cast(std::uint64_t, x);
}
static double number(std::uint64_t bits)
{
    return __builtin_bit_cast(double, bits);
}
static double clear_low_bits(double x, unsigned count)
{
    return number(pattern(x) >> count << count);
}
static unsigned exponent_field(double x)
{
    return static_cast<unsigned>(pattern(x) >> 52 & 0x7FF);
}
static std::int32_t sign_from_bit_1(std::uint32_t n)
{
    return static_cast<std::int32_t>(n << 30 & 0x80000000);
}

// A sum that keeps its rounding errors; terms come in order of decreasing size.
struct Accumulator {
    double s;
    double err;
    void add(double term)
    {
        const double sum = s + term;
        err = ((s - sum) + term) + err;
        s = sum;
    }
};

static std::int32_t reduce_below_2_30(double* r, Mode mode, double x)
{
    const auto& k = tables::trig_reduction;
    std::int32_t n;
    std::int32_t result;
    if (mode == Mode::quadrant) {
        n = (static_cast<std::int32_t>(x * k._PI04_INV) + 1) & ~1;
        result = n >> 1;
    } else {
        n = static_cast<std::int32_t>(x * k._PI02_INV);
        n = mode == Mode::sine ? (n + 1) & ~1 : n | 1;
        result = sign_from_bit_1(static_cast<std::uint32_t>(mode == Mode::sine ? n : ~n));
    }
    const auto& K = mode == Mode::quadrant ? k._PI04_21x5 : k._PIO2_21x5;
    *r = subtract_multiple(splat(x), splat(static_cast<double>(n)), K)[0];
    return result;
}

static std::int32_t reduce_from_2_30(double* r, Mode mode, double x)
{
    const auto& k = tables::trig_reduction;
    const bool quadrant = mode == Mode::quadrant;
    const auto* T = quadrant ? k._DP : k._DDP;
    const auto& P = quadrant ? k._PI04_25x2 : k._PIO2_25x2;
    const std::uint32_t b = mode == Mode::cosine ? 1 : 0;

    // x 2^-200 in two halves: 26 significant bits times 25 of a piece is exact.
    const double X = number(pattern(x) - (std::uint64_t{200} << 52));
    const double Xhi = clear_low_bits(X, 27);
    const double Xlo = X - Xhi;

    // Pieces before T[0], and T[0] Xhi, contribute multiples of 8 (4). From m = 17 on, so do the leading bits
    // of the next two products.
    const unsigned m = (exponent_field(x) - 1052) % 25;
    T += (exponent_field(x) - 1052) / 25;
    const auto piece = [&T](unsigned i) { return number(T[i]); };
    Accumulator head = {0.0, 0.0};
    if (m >= 17) {
        const double t0 = piece(0) * Xlo;
        const double t1 = piece(1) * Xhi;
        const double S = t0 + t1;
        const double E = (t0 - S) + t1;
        head = {S - clear_low_bits(E + S, 20), E};
        ++T;
    }
    const double t1_low = piece(1) * Xlo;
    const double t2_high = piece(2) * Xhi;
    head.add(piece(0) * Xlo);
    head.add(piece(1) * Xhi);
    const double B = head.s;
    const double e2 = head.err;

    // 2^16 <= V < 2^48: the integer part of V stands at the top of its significand.
    const double V = ((e2 + B) + t1_low) + t2_high;
    const unsigned shift = 1075 - exponent_field(V);
    const double I = clear_low_bits(V, shift);
    const auto N = static_cast<std::uint32_t>(pattern(V) >> shift);
    const double parity_correction = k._zero_none[(b + N) & 1];

    Accumulator fraction = {B - I, 0.0};
    fraction.add(e2);
    fraction.s += parity_correction;
    fraction.add(t1_low);
    fraction.add(t2_high);
    fraction.add(piece(2) * Xlo);
    fraction.add(piece(3) * Xhi);
    fraction.add(piece(3) * Xlo);
    fraction.add(piece(4) * Xhi);
    fraction.add(piece(4) * Xlo + piece(5) * Xhi);
    fraction.add(piece(5) * Xlo + piece(6) * Xhi);
    const double L = piece(6) * Xlo + piece(7) * Xhi;

    const double G = fraction.s + L;
    const double scaled = k._TWO_26H * G;
    const double Fhi = (G + scaled) - scaled;
    const double Flo = ((fraction.s - Fhi) + L) + fraction.err;
    const double u = P[0] * Fhi;
    const double v = P[0] * Flo + (Flo + Fhi) * P[1];
    const double w = v + u;
    *r = ((u - w) + v) + w;

    if (!quadrant) return sign_from_bit_1(b + N + 1);
    const std::int32_t q = static_cast<std::int32_t>(N + 1) >> 1;
    if (!(*r > k._PI04)) return q;
    *r -= k._PI02;
    return q - 3;
}

static std::int32_t reduce(double* r, Mode mode, double x)
{
    const unsigned e = exponent_field(x);
    if (e == 2047) {
        *r = x * tables::trig_reduction._zero_none[0];
        return 0;
    }
    return e < 1053 ? reduce_below_2_30(r, mode, x) : reduce_from_2_30(r, mode, x);
}

#if defined(__x86_64__)
std::int32_t __zelk_trig_reduction(double* r, std::int32_t mode, double x)
{
    return reduce(r, mode == sine_mode ? Mode::sine : mode == cosine_mode ? Mode::cosine : Mode::quadrant, x);
}
#else
std::int32_t __zelk_sin_reduction_LA(double* r, double x)
{
    return reduce(r, Mode::sine, x);
}
std::int32_t __zelk_cos_reduction_LA(double* r, double x)
{
    return reduce(r, Mode::cosine, x);
}
std::int32_t __zelk_pi04_reduction_LA(double* r, double x)
{
    return reduce(r, Mode::quadrant, x);
}
#endif

} // namespace zelk::ZELK_TIER
