#include "scalar_workloads.h"

#include <cmath>
#include <complex>
#include <random>
#include <utility>

#include "zelk/complex.h"

namespace zelk::bench {

namespace {

// C's complex numbers, which the routines take; C++ has its own functions for its own.
template <class T>
struct Types {
    using Peer = T;
    using Part = T;
};
template <>
struct Types<zelk_complex_float> {
    using Peer = std::complex<float>;
    using Part = float;
};
template <>
struct Types<zelk_complex_double> {
    using Peer = std::complex<double>;
    using Part = double;
};

template <class T>
void fill_with(Arrays& arrays, Range x, Range y)
{
    using Part = typename Types<T>::Part;
    std::mt19937 generator(1); // always the same arguments
    for (const auto& [block, range] : {std::pair(&arrays.x, x), std::pair(&arrays.y, y)}) {
        std::uniform_real_distribution<double> uniform(range.low, range.high);
        for (std::size_t i = 0; i < Block::count<Part>; ++i)
            block->template as<Part>()[i] = static_cast<Part>(uniform(generator));
    }
}

struct Row {
    std::string_view name;
    ScalarWorkload workload;
};

template <class Signature>
Signature* routine_at(const void* address)
{
    return reinterpret_cast<Signature*>(reinterpret_cast<std::uintptr_t>(address));
}

// The peer is a stateless callable.
template <class T, class Function>
constexpr Row unary(std::string_view name, Range x, Function)
{
    const auto own = [](const void* routine, Arrays& arrays) {
        for (std::size_t i = 0; i < Block::count<T>; ++i)
            arrays.first.as<T>()[i] = routine_at<T(T)>(routine)(arrays.x.as<T>()[i]);
    };
    const auto peer = [](Arrays& arrays) {
        using P = typename Types<T>::Peer;
        for (std::size_t i = 0; i < Block::count<P>; ++i)
            arrays.first.as<P>()[i] = Function{}(arrays.x.as<P>()[i]);
    };
    return {name, {Block::count<T>, fill_with<T>, own, peer, x, {}}};
}

template <class T, class Function>
constexpr Row binary(std::string_view name, Range x, Range y, Function)
{
    const auto own = [](const void* routine, Arrays& arrays) {
        for (std::size_t i = 0; i < Block::count<T>; ++i)
            arrays.first.as<T>()[i] = routine_at<T(T, T)>(routine)(arrays.x.as<T>()[i], arrays.y.as<T>()[i]);
    };
    const auto peer = [](Arrays& arrays) {
        for (std::size_t i = 0; i < Block::count<T>; ++i)
            arrays.first.as<T>()[i] = Function{}(arrays.x.as<T>()[i], arrays.y.as<T>()[i]);
    };
    return {name, {Block::count<T>, fill_with<T>, own, peer, x, y}};
}

// Two results through pointers; the routine and the peer get the element of x and where to store them.
template <class Own, class Function>
constexpr Row two_results(std::string_view name, Range x, Own, Function)
{
    using T = long double;
    const auto own = [](const void* routine, Arrays& arrays) {
        for (std::size_t i = 0; i < Block::count<T>; ++i)
            Own{}(routine, arrays.x.as<T>()[i], arrays.first.as<T>() + i, arrays.second.as<T>() + i);
    };
    const auto peer = [](Arrays& arrays) {
        for (std::size_t i = 0; i < Block::count<T>; ++i)
            Function{}(arrays.x.as<T>()[i], arrays.first.as<T>() + i, arrays.second.as<T>() + i);
    };
    return {name, {Block::count<T>, fill_with<T>, own, peer, x, {}}};
}

constexpr Row without_peer(Row row)
{
    row.workload.peer = nullptr;
    return row;
}

constexpr Range unit{-0.99, 0.99};
constexpr Range turns{-10, 10};
constexpr Range degrees{-600, 600};
constexpr Range positive{0.001, 1000};
constexpr Range plane{-4, 4};
constexpr auto sum = [](auto x, auto y) { return x + y; };
constexpr auto same = [](auto x) { return x; };

using L = long double;
const Row rows[] = {
    unary<double>("acos_scalar", unit, [](auto x) { return std::acos(x); }),
    binary<double>("atan2_scalar", turns, turns, [](auto y, auto x) { return std::atan2(y, x); }),
    unary<double>("sqrt_scalar", positive, [](auto x) { return std::sqrt(x); }),
    unary<float>("sqrtf_scalar", positive, [](auto x) { return std::sqrt(x); }),
    unary<L>("sqrtl_scalar", positive, [](auto x) { return std::sqrt(x); }),
    unary<double>("log_scalar", positive, [](auto x) { return std::log(x); }),
    unary<double>("log1p_scalar", positive, [](auto x) { return std::log1p(x); }),

    unary<L>("expl_scalar", {-20, 20}, [](auto x) { return std::exp(x); }),
    unary<L>("logl_scalar", positive, [](auto x) { return std::log(x); }),
    unary<L>("log1pl_scalar", positive, [](auto x) { return std::log1p(x); }),
    binary<L>("powl_scalar", {0.01, 100}, turns, [](auto x, auto y) { return std::pow(x, y); }),
    unary<L>("sinhl_scalar", turns, [](auto x) { return std::sinh(x); }),
    unary<L>("coshl_scalar", turns, [](auto x) { return std::cosh(x); }),
    unary<L>("tanhl_scalar", turns, [](auto x) { return std::tanh(x); }),
    two_results(
        "sinhcoshl_scalar", turns,
        [](const void* routine, L x, L* first, L* second) {
            routine_at<void(L*, L*, L)>(routine)(first, second, x);
        },
        [](L x, L* first, L* second) {
            *first = std::sinh(x);
            *second = std::cosh(x);
        }),
    unary<L>("asinhl_scalar", turns, [](auto x) { return std::asinh(x); }),
    unary<L>("acoshl_scalar", {1.01, 100}, [](auto x) { return std::acosh(x); }),
    unary<L>("atanhl_scalar", unit, [](auto x) { return std::atanh(x); }),

    unary<L>("sinl_scalar", turns, [](auto x) { return std::sin(x); }),
    unary<L>("cosl_scalar", turns, [](auto x) { return std::cos(x); }),
    unary<L>("tanl_scalar", turns, [](auto x) { return std::tan(x); }),
    two_results(
        "sincosl_scalar", turns,
        [](const void* routine, L x, L* first, L* second) {
            routine_at<void(L, L*, L*)>(routine)(x, first, second);
        },
        [](L x, L* first, L* second) { sincosl(x, first, second); }),
    without_peer(unary<L>("sindl_scalar", degrees, same)),
    without_peer(unary<L>("cosdl_scalar", degrees, same)),
    unary<L>("asinl_scalar", unit, [](auto x) { return std::asin(x); }),
    unary<L>("acosl_scalar", unit, [](auto x) { return std::acos(x); }),
    unary<L>("atanl_scalar", turns, [](auto x) { return std::atan(x); }),
    binary<L>("atan2l_scalar", turns, turns, [](auto y, auto x) { return std::atan2(y, x); }),
    without_peer(binary<L>("atan2dl_scalar", turns, turns, sum)),

    unary<zelk_complex_float>("cacosf_scalar", plane, [](auto z) { return std::acos(z); }),
    unary<zelk_complex_float>("cexpf_scalar", plane, [](auto z) { return std::exp(z); }),
    unary<zelk_complex_float>("clogf_scalar", plane, [](auto z) { return std::log(z); }),
    unary<zelk_complex_float>("csqrtf_scalar", plane, [](auto z) { return std::sqrt(z); }),
    unary<zelk_complex_double>("cacos_scalar", plane, [](auto z) { return std::acos(z); }),
    unary<zelk_complex_double>("cexp_scalar", plane, [](auto z) { return std::exp(z); }),
    unary<zelk_complex_double>("clog_scalar", plane, [](auto z) { return std::log(z); }),
    unary<zelk_complex_double>("csqrt_scalar", plane, [](auto z) { return std::sqrt(z); }),
};

} // namespace

std::optional<ScalarWorkload> find_scalar_workload(std::string_view routine)
{
    for (const Row& row : rows)
        if (row.name == routine) return row.workload;
    return std::nullopt;
}

} // namespace zelk::bench
