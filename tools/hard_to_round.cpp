// hard-to-round: prints tools/accuracy/hard_to_round.inc, binary64 arguments whose exact result lies within
// 2^-30 ulp of the midpoint of two numbers.
//
// Method: over a block of 2^20 neighbouring arguments x0 + k ulp(x0), the result in units of its last place
// is a + b k + c k^2 but for less than 2^-35, and a + b k on pieces of the block but for less than 2^-33;
// there the first k whose fraction lies in an interval round 1/2 follows from Euclid's algorithm. Hits are
// verified.
#include "functions.h"

#include "exact.h"

#include <gmp.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace zelk;
using namespace zelk::accuracy;
__extension__ using Wide = unsigned __int128;

constexpr std::uint64_t block_size = std::uint64_t{1} << 20;
constexpr unsigned arguments_of_each = 8;
constexpr double distance = 0x1p-30;

// The entries, and the interval from which arguments come: where neighbouring arguments have results that
// are not many units in the last place apart.
const struct {
    const char* entry;
    double from;
    double to;
} searches[] = {
    {"exp2", 0x1p-4, 1},  {"exp22", 0x1p-4, 1},   {"log2", 1.5, 8},      {"log22", 1.5, 8},
    {"log102", 1.5, 8},   {"asin2", 0x1p-4, .9},  {"acos2", 0x1p-4, .9}, {"atan2", 0x1p-4, 4},
    {"sinh2", 0x1p-4, 2}, {"cosh2", 0x1p-4, 1},   {"tanh2", 0x1p-4, 2},  {"asinh2", 0x1p-4, 8},
    {"acosh2", 1.5, 8},   {"atanh2", 0x1p-4, .9}, {"cbrt2", 1, 8},       {"erf2", 0x1p-4, 2},
    {"erfc2", 0x1p-4, 2}, {"sin2", 0x1p-4, 1},    {"cos2", 0x1p-4, 1},   {"tan2", 0x1p-4, 1},
};

class Search {
public:
    explicit Search(const Function& function) : function_(function) {}

    // The exact result in units of 2^unit, and the exponent of its own last place.
    void evaluate(mpfr_ptr result, double x, long unit) const
    {
        Exact argument;
        mpfr_set_d(argument.value, x, MPFR_RNDN);
        function_.evaluate(result, nullptr, argument.value, argument.value);
        mpfr_mul_2si(result, result, -unit, MPFR_RNDN);
    }
    long last_place(double x) const
    {
        Exact result;
        evaluate(result.value, x, 0);
        return mpfr_get_exp(result.value) - 53;
    }
    // Distance of the result from the nearest midpoint, in units in the last place.
    double from_midpoint(double x) const
    {
        Exact result;
        evaluate(result.value, x, last_place(x));
        mpfr_frac(result.value, result.value, MPFR_RNDN);
        return std::fabs(std::fabs(mpfr_get_d(result.value, MPFR_RNDN)) - 0.5);
    }

    // Calls found(x) for arguments of the block from x0 on.
    template <class Found>
    void search_block(double x0, Found found) const
    {
        const double ulp = std::nextafter(x0, 2 * x0) - x0;
        const double middle = x0 + ulp * (block_size / 2);
        const double end = x0 + ulp * block_size;
        const long unit = last_place(x0);
        if (std::ilogb(end) != std::ilogb(x0) || last_place(end) != unit) return;

        Exact a, b, c;
        evaluate(a.value, x0, unit);
        evaluate(b.value, middle, unit);
        evaluate(c.value, end, unit);
        mpfr_sub(b.value, b.value, a.value, MPFR_RNDN); // B(n/2) + C(n/2)^2
        mpfr_sub(c.value, c.value, a.value, MPFR_RNDN); // Bn + Cn^2
        Exact slope;
        mpfr_mul_ui(slope.value, b.value, 4, MPFR_RNDN);
        mpfr_sub(slope.value, slope.value, c.value, MPFR_RNDN);
        mpfr_div_ui(slope.value, slope.value, block_size, MPFR_RNDN);
        mpfr_mul_ui(b.value, b.value, 2, MPFR_RNDN);
        mpfr_sub(c.value, c.value, b.value, MPFR_RNDN);
        mpfr_mul_ui(c.value, c.value, 2, MPFR_RNDN);
        mpfr_div_d(c.value, c.value, static_cast<double>(block_size) * block_size, MPFR_RNDN);

        // Pieces so short that c k (piece - k) stays small.
        std::uint64_t piece = 4096;
        while (piece > 1 &&
               std::fabs(mpfr_get_d(c.value, MPFR_RNDN)) * static_cast<double>(piece * piece) / 4 > 0x1p-33)
            piece /= 2;
        const Wide A = fixed(a.value), B = fixed(slope.value), C = fixed(c.value);
        for (std::uint64_t start = 0; start < block_size; start += piece) {
            const auto value = static_cast<std::uint64_t>((A + (B + C * start) * start) >> 64);
            const auto step = static_cast<std::uint64_t>((B + C * (2 * start + piece)) >> 64);
            for (std::uint64_t k = 0; k < piece; ++k) {
                k += first_near_half(value + step * k, step, piece - k);
                if (k >= piece) break;
                found(x0 + ulp * static_cast<double>(start + k));
            }
        }
    }

private:
    // Modulo 1, in units of 2^-128.
    static Wide fixed(mpfr_srcptr x)
    {
        Exact scaled(400);
        mpfr_mul_2ui(scaled.value, x, 128, MPFR_RNDN);
        mpz_t integer;
        mpz_init(integer);
        mpfr_get_z(integer, scaled.value, MPFR_RNDD);
        mpz_fdiv_r_2exp(integer, integer, 128);
        std::uint64_t words[2] = {};
        mpz_export(words, nullptr, -1, sizeof words[0], 0, 0, integer);
        mpz_clear(integer);
        return Wide{words[1]} << 64 | words[0];
    }

    // The first k < limit for which value + k step, in units of 2^-64 and modulo 1, is within the distance
    // of 1/2; limit if there is none.
    static std::uint64_t first_near_half(std::uint64_t value, std::uint64_t step, std::uint64_t limit)
    {
        const auto width = static_cast<std::uint64_t>(std::ldexp(distance, 64));
        const std::uint64_t low = (std::uint64_t{1} << 63) - width - value;
        if (low + 2 * width < low) return 0; // the interval is round 0
        return first_in_range(step, Wide{1} << 64, low, low + 2 * width, limit);
    }

    // The first k < limit with low <= k step mod modulus <= high, 0 <= low <= high < modulus; or limit.
    static std::uint64_t first_in_range(Wide step, Wide modulus, Wide low, Wide high, std::uint64_t limit)
    {
        if (low == 0) return 0;
        if (step == 0) return limit;
        const Wide direct = (low + step - 1) / step;
        if (direct * step <= high) return direct < limit ? static_cast<std::uint64_t>(direct) : limit;
        // k step = turns modulus + what is sought: turns modulus mod step lies in an interval, too.
        const auto turns_limit = static_cast<std::uint64_t>(step * limit / modulus) + 1;
        if (turns_limit == 1) return limit;
        const std::uint64_t turns = first_in_range(modulus % step, step, (step - high % step) % step,
                                                   (step - low % step) % step, turns_limit);
        if (turns == turns_limit) return limit;
        const Wide k = (low + modulus * turns + step - 1) / step;
        return k < limit ? static_cast<std::uint64_t>(k) : limit;
    }

    const Function& function_;
};

} // namespace

int main()
{
    for (const auto& [entry, from, to] : searches) {
        const Search search(*find_function(entry));
        Random random(static_cast<std::uint64_t>(entry[0]) * 1000003 + static_cast<std::uint64_t>(from * 16));
        unsigned found = 0;
        while (found < arguments_of_each) {
            const double x0 = from + (to - from) * static_cast<double>(random.next() >> 11) * 0x1p-53;
            search.search_block(x0, [&](double x) {
                if (found == arguments_of_each || search.from_midpoint(x) > distance) return;
                std::printf("{\"%s\", %a},\n", entry, x);
                ++found;
            });
        }
    }
}
