// 4/pi and 2/pi for the large-argument reduction: 49 pieces of 25 consecutive bits, each exact at its own
// weight, of (4/pi) 2^200 and of (2/pi) 2^200, between zeros that keep the index simple.
// _DP[i] = 2^(176 - 25 (i-1)) (floor((4/pi) 2^(24 + 25 (i-1))) mod 2^25), _DDP[i] = _DP[i] / 2.
#include "table_writer.h"

using namespace zelk::generate;

namespace {

constexpr long piece_bits = 25;

double piece(int i)
{
    Real value = Real(4.0) / pi();
    mpfr_mul_2si(value.get(), value.get(), (piece_bits - 1) + piece_bits * (i - 1), MPFR_RNDN);
    mpfr_floor(value.get(), value.get());
    mpfr_fmod(value.get(), value.get(), Real(0x1p25).get(), MPFR_RNDN);
    mpfr_mul_2si(value.get(), value.get(), 176 - piece_bits * (i - 1), MPFR_RNDN);
    return value.to_double();
}

void print_pieces(const char* name, double factor)
{
    std::printf(".%s =\n    {\n", name);
    for (int i = 0; i < 52; ++i) {
        const double entry = i >= 1 && i <= 49 ? piece(i) * factor : 0.0;
        std::printf("        0x%016" PRIX64 ",\n", bits(entry));
    }
    std::printf("    },\n");
}

} // namespace

int main()
{
    print_pieces("_DP", 1.0);
    print_pieces("_DDP", 0.5);
}
