#include "workloads.h"

#include "chain.h"

#include <cmath>
#include <complex>
#include <cstdint>
#include <random>
#include <utility>

namespace zelk::bench {

namespace {

// A stateless callable, called directly in loops of its own for one element type.
template <class T, class Function>
constexpr Peer unary_peer(Function)
{
    return {[](Arrays& arrays) {
                for (std::size_t i = 0; i < Block::count<T>; ++i)
                    arrays.first.as<T>()[i] = Function{}(arrays.x.as<T>()[i]);
            },
            [](Arrays& arrays) {
                T result{};
                for (std::size_t i = 0; i < Block::count<T>; ++i)
                    result = Function{}(after(arrays.x.as<T>()[i], result));
                arrays.first.as<T>()[0] = result;
            }};
}

template <class T, class Function>
constexpr Peer binary_peer(Function)
{
    return {[](Arrays& arrays) {
                for (std::size_t i = 0; i < Block::count<T>; ++i)
                    arrays.first.as<T>()[i] = Function{}(arrays.x.as<T>()[i], arrays.y.as<T>()[i]);
            },
            [](Arrays& arrays) {
                T result{};
                for (std::size_t i = 0; i < Block::count<T>; ++i)
                    result = Function{}(after(arrays.x.as<T>()[i], result), arrays.y.as<T>()[i]);
                arrays.first.as<T>()[0] = result;
            }};
}

// The callable stores both results.
template <class T, class Function>
constexpr Peer two_result_peer(Function)
{
    return {[](Arrays& arrays) {
                for (std::size_t i = 0; i < Block::count<T>; ++i)
                    Function{}(arrays.x.as<T>()[i], arrays.y.as<T>()[i], arrays.first.as<T>()[i],
                               arrays.second.as<T>()[i]);
            },
            [](Arrays& arrays) {
                T first{};
                T second{};
                for (std::size_t i = 0; i < Block::count<T>; ++i)
                    Function{}(after(arrays.x.as<T>()[i], first), arrays.y.as<T>()[i], first, second);
                arrays.first.as<T>()[0] = first;
                arrays.second.as<T>()[0] = second;
            }};
}

// The peers of a float4 entry and of its double2 twin.
struct Peers {
    Peer single;
    Peer twin;
};

template <class Function>
constexpr Peers unary(Function function)
{
    return {unary_peer<float>(function), unary_peer<double>(function)};
}
template <class Function>
constexpr Peers binary(Function function)
{
    return {binary_peer<float>(function), binary_peer<double>(function)};
}
template <class Function>
constexpr Peers complex(Function function)
{
    return {unary_peer<std::complex<float>>(function), {}};
}
template <class Function>
constexpr Peers integer(Function function)
{
    return {binary_peer<std::int32_t>(function), {}};
}
template <class Function>
constexpr Peers unsigned_integer(Function function)
{
    return {binary_peer<std::uint32_t>(function), {}};
}
constexpr Peers none{};

// sincos is no standard C++, and has a name for each precision.
constexpr Peers sine_and_cosine{
    two_result_peer<float>([](float x, float, float& sine, float& cosine) { sincosf(x, &sine, &cosine); }),
    two_result_peer<double>(
        [](double x, double, double& sine, double& cosine) { sincos(x, &sine, &cosine); })};

constexpr auto quotient = [](auto a, auto b) { return a / b; };
constexpr auto remainder = [](auto a, auto b) { return a % b; };
constexpr auto quotient_and_remainder = [](auto a, auto b, auto& q, auto& r) {
    q = a / b;
    r = a % b;
};
constexpr Peers integer_pair{two_result_peer<std::int32_t>(quotient_and_remainder), {}};
constexpr Peers unsigned_pair{two_result_peer<std::uint32_t>(quotient_and_remainder), {}};

constexpr Range unit{-0.99, 0.99};
constexpr Range complex_plane{-4, 4};
constexpr Range dividends{-2147483647, 2147483647};
constexpr Range divisors{-100000, 100000};
constexpr Range unsigned_dividends{0, 4294967295};
constexpr Range unsigned_divisors{1, 100000};

struct Row {
    std::string_view single;
    std::string_view twin;
    Range x;
    Range y;
    Peers peers;
};

// Every vector function of the list, also those still to be written.
const Row rows[] = {
    {"sinf4", "sin2", {-10, 10}, {}, unary([](auto x) { return std::sin(x); })},
    {"cosf4", "cos2", {-10, 10}, {}, unary([](auto x) { return std::cos(x); })},
    {"tanf4", "tan2", {-10, 10}, {}, unary([](auto x) { return std::tan(x); })},
    {"sincosf4", "sincos2", {-10, 10}, {}, sine_and_cosine},
    {"ropsSinCos4", "ropdSinCos2", {-10, 10}, {}, sine_and_cosine},

    // exp2 and log2 are e^x and ln x on double2, exp22 and log22 their base-2 forms.
    {"expf4", "exp2", {-20, 20}, {}, unary([](auto x) { return std::exp(x); })},
    {"exp2f4", "exp22", {-20, 20}, {}, unary([](auto x) { return std::exp2(x); })},
    {"logf4", "log2", {0.001, 1000}, {}, unary([](auto x) { return std::log(x); })},
    {"log2f4", "log22", {0.001, 1000}, {}, unary([](auto x) { return std::log2(x); })},
    {"log10f4", "log102", {0.001, 1000}, {}, unary([](auto x) { return std::log10(x); })},
    {"powf4", "pow2", {0.1, 10}, {-5, 5}, binary([](auto x, auto y) { return std::pow(x, y); })},

    {"acosf4", "acos2", unit, {}, unary([](auto x) { return std::acos(x); })},
    {"asinf4", "asin2", unit, {}, unary([](auto x) { return std::asin(x); })},
    {"atanf4", "atan2", {-10, 10}, {}, unary([](auto x) { return std::atan(x); })},
    {"atan2f4", "atan22", {-10, 10}, {-10, 10}, binary([](auto y, auto x) { return std::atan2(y, x); })},

    {"sinhf4", "sinh2", {-10, 10}, {}, unary([](auto x) { return std::sinh(x); })},
    {"coshf4", "cosh2", {-10, 10}, {}, unary([](auto x) { return std::cosh(x); })},
    {"tanhf4", "tanh2", {-5, 5}, {}, unary([](auto x) { return std::tanh(x); })},
    {"asinhf4", "asinh2", {-10, 10}, {}, unary([](auto x) { return std::asinh(x); })},
    {"acoshf4", "acosh2", {1.01, 100}, {}, unary([](auto x) { return std::acosh(x); })},
    {"atanhf4", "atanh2", unit, {}, unary([](auto x) { return std::atanh(x); })},

    {"sqrtf4", "sqrt2", {0.01, 100}, {}, unary([](auto x) { return std::sqrt(x); })},
    {"invsqrtf4", "invsqrt2", {0.01, 100}, {}, unary([](auto x) { return 1 / std::sqrt(x); })},
    {"cbrtf4", "cbrt2", {-100, 100}, {}, unary([](auto x) { return std::cbrt(x); })},
    {"invcbrtf4", "invcbrt2", {0.01, 100}, {}, unary([](auto x) { return 1 / std::cbrt(x); })},
    {"erff4", "erf2", {-3, 3}, {}, unary([](auto x) { return std::erf(x); })},
    {"erfcf4", "erfc2", {-3, 3}, {}, unary([](auto x) { return std::erfc(x); })},
    // These two are x + x and x + y: nothing to stand beside.
    {"erfinvf4", "erfinv2", unit, {}, none},
    {"hypotf4", "hypot2", {-10, 10}, {-10, 10}, none},

    {"ceilf4", "ceil2", {-1000, 1000}, {}, unary([](auto x) { return std::ceil(x); })},
    {"floorf4", "floor2", {-1000, 1000}, {}, unary([](auto x) { return std::floor(x); })},
    {"truncf4", "trunc2", {-1000, 1000}, {}, unary([](auto x) { return std::trunc(x); })},
    {"roundf4", "round2", {-1000, 1000}, {}, unary([](auto x) { return std::round(x); })},
    {"rintf4", "rint2", {-1000, 1000}, {}, unary([](auto x) { return std::rint(x); })},
    {"nearbyintf4", "nearbyint2", {-1000, 1000}, {}, unary([](auto x) { return std::nearbyint(x); })},

    {"idiv4", {}, dividends, divisors, integer(quotient)},
    {"irem4", {}, dividends, divisors, integer(remainder)},
    {"idivrem4", {}, dividends, divisors, integer_pair},
    {"ropiDivRem4", {}, dividends, divisors, integer_pair},
    {"udiv4", {}, unsigned_dividends, unsigned_divisors, unsigned_integer(quotient)},
    {"urem4", {}, unsigned_dividends, unsigned_divisors, unsigned_integer(remainder)},
    {"udivrem4", {}, unsigned_dividends, unsigned_divisors, unsigned_pair},
    {"ropuDivRem4", {}, unsigned_dividends, unsigned_divisors, unsigned_pair},

    // The complex functions without a peer return their argument.
    {"cacosf2", {}, complex_plane, {}, complex([](auto z) { return std::acos(z); })},
    {"cexpf2", {}, complex_plane, {}, complex([](auto z) { return std::exp(z); })},
    {"clogf2", {}, complex_plane, {}, complex([](auto z) { return std::log(z); })},
    {"csqrtf2", {}, complex_plane, {}, complex([](auto z) { return std::sqrt(z); })},
    {"cacoshf2", {}, complex_plane, {}, none},
    {"casinf2", {}, complex_plane, {}, none},
    {"casinhf2", {}, complex_plane, {}, none},
    {"catanf2", {}, complex_plane, {}, none},
    {"catanhf2", {}, complex_plane, {}, none},
    {"ccosf2", {}, complex_plane, {}, none},
    {"ccoshf2", {}, complex_plane, {}, none},
    {"clog10f2", {}, complex_plane, {}, none},
    {"clog2f2", {}, complex_plane, {}, none},
    {"cpowf2", {}, complex_plane, complex_plane, none},
    {"csinf2", {}, complex_plane, {}, none},
    {"csinhf2", {}, complex_plane, {}, none},
    {"ctanf2", {}, complex_plane, {}, none},
    {"ctanhf2", {}, complex_plane, {}, none},
};

template <class T>
void fill_block(Block& block, Range range, std::mt19937& generator)
{
    std::uniform_real_distribution<double> uniform(range.low, range.high);
    for (std::size_t i = 0; i < Block::count<T>; ++i) {
        const double value = uniform(generator);
        // Integers: no zero, which is no divisor.
        block.as<T>()[i] = static_cast<T>(std::is_integral_v<T> && std::fabs(value) < 1 ? 1.0 : value);
    }
}

} // namespace

std::optional<Workload> find_workload(std::string_view entry)
{
    for (const Row& row : rows)
        if (entry == row.single || entry == row.twin)
            return Workload{row.x, row.y, entry == row.single ? row.peers.single : row.peers.twin};
    return std::nullopt;
}

void fill(Arrays& arrays, const Workload& workload, Lanes lanes)
{
    std::mt19937 generator(1); // always the same arguments
    for (const auto& [block, range] : {std::pair(&arrays.x, workload.x), std::pair(&arrays.y, workload.y)}) {
        switch (lanes) {
        case Lanes::d2:
            fill_block<double>(*block, range, generator);
            break;
        case Lanes::i4:
            fill_block<std::int32_t>(*block, range, generator);
            break;
        case Lanes::u4:
            fill_block<std::uint32_t>(*block, range, generator);
            break;
        default:
            fill_block<float>(*block, range, generator);
        }
    }
}

} // namespace zelk::bench
