// The arguments of a workload, and the errors that a function makes on them.
#include "workloads.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace zelk::bench {

namespace {

double draw(Range range, std::mt19937& generator)
{
    if (range.smallest == 0) return std::uniform_real_distribution<double>(range.low, range.high)(generator);
    std::uniform_real_distribution<double> logarithm(std::log(range.smallest), std::log(range.high));
    const double magnitude = std::min(std::exp(logarithm(generator)), range.high);
    return range.low < 0 && generator() % 2 != 0 ? -magnitude : magnitude;
}

template <class T>
void fill_as(T* x, T* y, std::size_t count, std::size_t lanes, const Arguments& arguments, Input input)
{
    const Range* ranges = arguments.ordinary;
    if (input == Input::wide) ranges = arguments.wide;
    if (input == Input::large) ranges = arguments.large;
    std::mt19937 generator(1); // always the same arguments
    for (std::size_t i = 0; i < count; ++i) {
        for (T* to : {x, y}) {
            const double value = draw(ranges[to == x ? 0 : 1], generator);
            // Integers: no zero, which is no divisor.
            to[i] = static_cast<T>(std::is_integral_v<T> && std::fabs(value) < 1 ? 1.0 : value);
        }
        const bool here = i % lanes == i / lanes % lanes; // each lane in turn
        if (input == Input::all_special || (input == Input::one_special && here)) {
            x[i] = static_cast<T>(arguments.specials[(i + i / lanes) % 4]);
            if (!std::isnan(arguments.special_y)) y[i] = static_cast<T>(arguments.special_y);
        }
    }
}

constexpr std::size_t error_arguments = 4096;

template <class T>
std::vector<long double> exact_values_of(const Workload& workload)
{
    static T x[error_arguments], y[error_arguments];
    fill_as(x, y, error_arguments, 16 / sizeof(T), workload.arguments, Input::ordinary);
    std::vector<long double> values;
    mpfr_t argument, other, exact;
    mpfr_inits2(100, argument, other, exact, nullptr);
    for (std::size_t i = 0; i < error_arguments; ++i) {
        mpfr_set_d(argument, x[i], MPFR_RNDN);
        mpfr_set_d(other, y[i], MPFR_RNDN);
        if (workload.exact.unary)
            workload.exact.unary(exact, argument, MPFR_RNDN);
        else
            workload.exact.binary(exact, argument, other, MPFR_RNDN);
        values.push_back(mpfr_get_ld(exact, MPFR_RNDN)); // 2^-11 ulp of a double at most
    }
    mpfr_clears(argument, other, exact, nullptr);
    return values;
}

template <class T>
double largest_error_of(const Workload& workload, const std::vector<long double>& exact, Loop throughput,
                        const void* function)
{
    alignas(64) static T x[error_arguments], y[error_arguments], first[error_arguments],
        second[error_arguments];
    fill_as(x, y, error_arguments, 16 / sizeof(T), workload.arguments, Input::ordinary);
    throughput(function, Arrays{x, y, first, second, sizeof x});
    double largest = 0;
    for (std::size_t i = 0; i < error_arguments; ++i) {
        if (first[i] == exact[i]) continue;
        int exponent;
        std::frexp(exact[i], &exponent);
        const double ulps = static_cast<double>(
            std::ldexp(std::fabs(first[i] - exact[i]), std::numeric_limits<T>::digits - exponent));
        largest = std::max(largest, std::isnan(ulps) ? HUGE_VAL : ulps);
    }
    return largest;
}

} // namespace

bool fill(void* x, void* y, std::size_t bytes, const Workload& workload, Input input, Lanes lanes)
{
    const Arguments& arguments = workload.arguments;
    if (input == Input::large && arguments.large[0].high == 0) return false;
    const auto fill_lanes = [&]<class T>(T* as_x, std::size_t lane_count) {
        fill_as(as_x, static_cast<T*>(y), bytes / sizeof(T), lane_count, arguments, input);
    };
    switch (lanes) {
    case Lanes::d2:
        fill_lanes(static_cast<double*>(x), 2);
        break;
    case Lanes::i4:
        fill_lanes(static_cast<std::int32_t*>(x), 4);
        break;
    case Lanes::u4:
        fill_lanes(static_cast<std::uint32_t*>(x), 4);
        break;
    default:
        fill_lanes(static_cast<float*>(x), 4);
    }
    return true;
}

std::vector<long double> exact_values(const Workload& workload, Lanes lanes)
{
    if (!workload.exact.unary && !workload.exact.binary) return {};
    return lanes == Lanes::d2 ? exact_values_of<double>(workload) : exact_values_of<float>(workload);
}

double largest_error(const Workload& workload, const std::vector<long double>& exact, Lanes lanes,
                     Loop throughput, const void* function)
{
    if (exact.empty()) return -1;
    return lanes == Lanes::d2 ? largest_error_of<double>(workload, exact, throughput, function)
                              : largest_error_of<float>(workload, exact, throughput, function);
}

} // namespace zelk::bench
