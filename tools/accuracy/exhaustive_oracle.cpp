#include "exhaustive_oracle.h"

#include "exact.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace zelk::accuracy {

namespace {

constexpr std::size_t nodes = 12;
constexpr std::size_t smallest_piece = 64;
constexpr double undecided = -1;

double number_of(std::uint32_t pattern)
{
    return static_cast<double>(std::bit_cast<float>(pattern));
}

// cos(pi (j + 1/2) k / 12), k-th Chebyshev polynomial at the j-th node.
struct Nodes {
    Nodes()
    {
        const long double pi = 3.14159265358979323846264338327950288L;
        for (std::size_t j = 0; j < nodes; ++j)
            for (std::size_t k = 0; k < nodes; ++k)
                cosine[k][j] = std::cos(pi * static_cast<long double>((2 * j + 1) * k) / (2 * nodes));
    }
    long double cosine[nodes][nodes];
};

// From Chebyshev polynomials to powers.
std::array<double, nodes> as_powers(const std::array<long double, nodes>& chebyshev)
{
    std::array<long double, nodes> sum{};
    std::array<long double, nodes> before{};
    std::array<long double, nodes> polynomial{};
    before[0] = 1;
    polynomial[1] = 1;
    for (std::size_t i = 0; i < nodes; ++i)
        sum[i] = chebyshev[0] * before[i] + chebyshev[1] * polynomial[i];
    for (std::size_t k = 2; k < nodes; ++k) {
        std::array<long double, nodes> next{};
        for (std::size_t i = 0; i < nodes; ++i) {
            next[i] = -before[i] + (i > 0 ? 2 * polynomial[i - 1] : 0);
            sum[i] += chebyshev[k] * next[i];
        }
        before = polynomial;
        polynomial = next;
    }
    std::array<double, nodes> powers{};
    for (std::size_t i = 0; i < nodes; ++i)
        powers[i] = static_cast<double>(sum[i]);
    return powers;
}

// NaNs, infinities, overflows and what is too small for binary64 are the same all over a piece or not at all.
enum class Kind { number, nan, plus_infinite, minus_infinite, plus_zero, minus_zero };
Kind kind_of(mpfr_srcptr value)
{
    if (mpfr_nan_p(value)) return Kind::nan;
    const bool negative = mpfr_signbit(value) != 0;
    if (mpfr_inf_p(value) || (mpfr_regular_p(value) && mpfr_get_exp(value) > 129))
        return negative ? Kind::minus_infinite : Kind::plus_infinite;
    if (mpfr_zero_p(value) || mpfr_get_exp(value) < -1000)
        return negative ? Kind::minus_zero : Kind::plus_zero;
    return Kind::number;
}
double value_of(Kind kind)
{
    switch (kind) {
    case Kind::nan:
        return NAN;
    case Kind::plus_infinite:
        return HUGE_VAL;
    case Kind::minus_infinite:
        return -HUGE_VAL;
    case Kind::minus_zero:
        return -0.0;
    default:
        return 0;
    }
}

} // namespace

void RunOracle::evaluate(mpfr_ptr result, mpfr_srcptr x) const
{
    thread_local Exact other(72);
    if (which_ == 0)
        function_.evaluate(result, other.value, x, x);
    else
        function_.evaluate(other.value, result, x, x);
}

Reference RunOracle::reference(std::uint32_t pattern) const
{
    thread_local Exact x(53);
    thread_local Exact value(precision_of(binary32));
    mpfr_set_d(x.value, number_of(pattern), MPFR_RNDN);
    evaluate(value.value, x.value);
    return Reference(value.value, binary32);
}

void RunOracle::compute(std::uint32_t first, std::size_t count)
{
    values_.resize(count);
    compute_piece(first, count, values_.data());
}

void RunOracle::compute_piece(std::uint32_t first, std::size_t count, Value* out)
{
    if (std::string_view(function_.family) == "rounding") {
        if (follow_steps(first, count, out)) return;
    } else if (function_.is_circular && std::fabs(number_of(first)) >= 256) {
        if (step_from_start(first, count, out)) return;
    } else if (interpolate(first, count, out)) {
        return;
    }
    if (count > smallest_piece) {
        compute_piece(first, count / 2, out);
        compute_piece(first + static_cast<std::uint32_t>(count / 2), count / 2, out + count / 2);
        return;
    }
    std::fill(out, out + count, Value{0, undecided});
}

// From 2^23 on every number is an integer; below, a monotonic function with the same value at both ends has
// it everywhere between.
bool RunOracle::follow_steps(std::uint32_t first, std::size_t count, Value* out) const
{
    const double low = number_of(first);
    if (low == 0) return false;
    if (std::fabs(low) >= 0x1p23) {
        for (std::size_t i = 0; i < count; ++i)
            out[i] = {number_of(first + static_cast<std::uint32_t>(i)), 0};
        return true;
    }
    thread_local Exact x(53);
    thread_local Exact value(72);
    double ends[2];
    for (int end = 0; end < 2; ++end) {
        mpfr_set_d(x.value, end == 0 ? low : number_of(first + static_cast<std::uint32_t>(count - 1)),
                   MPFR_RNDN);
        evaluate(value.value, x.value);
        ends[end] = mpfr_get_d(value.value, MPFR_RNDN);
    }
    if (ends[0] != ends[1]) return false;
    std::fill(out, out + count, Value{ends[0], 0});
    return true;
}

bool RunOracle::interpolate(std::uint32_t first, std::size_t count, Value* out) const
{
    static const Nodes table;
    thread_local Exact x(80);
    thread_local Exact value(72);
    const double low = number_of(first);
    const double high = number_of(first + static_cast<std::uint32_t>(count - 1));
    if (low == 0) return false;                   // zero has a sign and often a meaning of its own
    const double middle = low + (high - low) / 2; // exact: a 25-bit number
    const double half_width = (high - low) / 2;

    std::array<long double, nodes> at_nodes;
    Kind kind{};
    for (std::size_t j = 0; j < nodes; ++j) {
        mpfr_set_ld(x.value, static_cast<long double>(half_width) * table.cosine[1][j], MPFR_RNDN);
        mpfr_add_d(x.value, x.value, middle, MPFR_RNDN);
        evaluate(value.value, x.value);
        const Kind this_kind = kind_of(value.value);
        if (j > 0 && this_kind != kind) return false;
        kind = this_kind;
        if (kind == Kind::number) at_nodes[j] = mpfr_get_ld(value.value, MPFR_RNDN);
    }

    std::array<double, nodes> powers{};
    double margin = 0;
    if (kind == Kind::number) {
        std::array<long double, nodes> chebyshev;
        long double total = 0;
        for (std::size_t k = 0; k < nodes; ++k) {
            long double sum = 0;
            for (std::size_t j = 0; j < nodes; ++j)
                sum += at_nodes[j] * table.cosine[k][j];
            chebyshev[k] = sum * (k == 0 ? 1.0L : 2.0L) / nodes;
            total += std::fabs(chebyshev[k]);
        }
        const long double last = std::fabs(chebyshev[nodes - 3]) + std::fabs(chebyshev[nodes - 2]) +
                                 std::fabs(chebyshev[nodes - 1]);
        if (last > total * 0x1p-46L) return false;
        powers = as_powers(chebyshev);
        margin = static_cast<double>(8 * last + total * 0x1p-50L);
        const double step = 2.0 / static_cast<double>(count - 1);
        for (std::size_t i = 0; i < count; ++i) {
            const double t = static_cast<double>(static_cast<int>(i)) * step - 1;
            double sum = powers[nodes - 1];
            for (std::size_t k = nodes - 1; k-- > 0;)
                sum = sum * t + powers[k];
            out[i] = {sum, margin};
        }
    } else {
        std::fill(out, out + count, Value{value_of(kind), 0});
    }

    for (const std::size_t place :
         {std::size_t{0}, count - 1, count * 3 / 16, count / 2 + 1, count * 7 / 8 + 1}) {
        mpfr_set_d(x.value, number_of(first + static_cast<std::uint32_t>(place)), MPFR_RNDN);
        evaluate(value.value, x.value);
        if (kind_of(value.value) != kind) return false;
        if (kind != Kind::number) continue;
        mpfr_sub_d(value.value, value.value, out[place].value, MPFR_RNDN);
        if (std::fabs(mpfr_get_d(value.value, MPFR_RNDN)) <= margin) continue;
        std::fprintf(stderr, "\n%s at %a: the interpolation misses its margin\n", function_.entry,
                     mpfr_get_d(x.value, MPFR_RNDN));
        std::abort();
    }
    return true;
}

namespace {

template <class T>
struct Point {
    T sine;
    T cosine;
};
template <class T>
Point<T> rotated(const Point<T>& a, const Point<T>& b)
{
    return {a.sine * b.cosine + a.cosine * b.sine, a.cosine * b.cosine - a.sine * b.sine};
}

Point<long double> sine_and_cosine_of(double x)
{
    thread_local Exact argument(53);
    thread_local Exact sine(72);
    thread_local Exact cosine(72);
    mpfr_set_d(argument.value, x, MPFR_RNDN);
    mpfr_sin_cos(sine.value, cosine.value, argument.value, MPFR_RNDN);
    return {mpfr_get_ld(sine.value, MPFR_RNDN), mpfr_get_ld(cosine.value, MPFR_RNDN)};
}

} // namespace

// x = start + (64 i + j) ulp: the start by MPFR for every 4096th argument, the steps by 64 and by 1 once for
// a run, as all arguments of a run have the same ulp. The steps by 64 are taken in 64 bits, those by 1 in 53.
bool RunOracle::step_from_start(std::uint32_t first, std::size_t count, Value* out) const
{
    constexpr std::size_t steps = 64;
    if (count < steps || !std::isfinite(number_of(first))) return false;
    thread_local Point<double> fine[steps];
    thread_local Point<long double> coarse[steps];
    thread_local double known_ulp = 0;
    const double ulp = number_of(first + 1) - number_of(first);
    if (ulp != known_ulp) {
        for (std::size_t i = 0; i < steps; ++i) {
            const auto [s, c] = sine_and_cosine_of(static_cast<double>(i) * ulp);
            fine[i] = {static_cast<double>(s), static_cast<double>(c)};
            coarse[i] = sine_and_cosine_of(static_cast<double>(i * steps) * ulp);
        }
        known_ulp = ulp;
    }
    const bool is_tangent = std::string_view(function_.family) == "tangent";
    const std::string_view name = function_.entry;
    const bool is_cosine = name.starts_with("cos") || which_ == 1;
    Point<long double> start{};
    for (std::size_t i = 0; i < count; i += steps) {
        const std::size_t turn = i / steps % steps;
        if (turn == 0) start = sine_and_cosine_of(number_of(first + static_cast<std::uint32_t>(i)));
        const Point<long double> near = rotated(start, coarse[turn]);
        const Point<double> near_double{static_cast<double>(near.sine), static_cast<double>(near.cosine)};
        for (std::size_t j = 0; j < steps; ++j) {
            const auto [s, c] = rotated(near_double, fine[j]);
            if (is_tangent) {
                // The margin of the sum is two to four units of 2^-53, of the quotient that and the same of
                // both.
                const double t = s / c;
                const double margin = 0x1p-50 * (1 + std::fabs(t)) / std::fabs(c);
                out[i + j] = {t, std::fabs(c) < 0x1p-20 ? undecided : margin};
            } else {
                out[i + j] = {is_cosine ? c : s, 0x1p-50};
            }
        }
    }
    return true;
}

} // namespace zelk::accuracy
