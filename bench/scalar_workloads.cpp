#include "scalar_workloads.h"

#include <complex.h>

#include <cmath>
#include <cstdint>
#include <random>

namespace zelk::bench {

namespace {

__extension__ typedef float _Complex ComplexFloat;
__extension__ typedef double _Complex ComplexDouble;

template <class T>
void unary_loop(const void* function, const Arrays& arrays)
{
    const auto call = reinterpret_cast<T (*)(T)>(reinterpret_cast<std::uintptr_t>(function));
    for (std::size_t i = 0; i < arrays.count<T>(); ++i)
        static_cast<T*>(arrays.first)[i] = call(static_cast<const T*>(arrays.x)[i]);
}

template <class T>
void binary_loop(const void* function, const Arrays& arrays)
{
    const auto call = reinterpret_cast<T (*)(T, T)>(reinterpret_cast<std::uintptr_t>(function));
    for (std::size_t i = 0; i < arrays.count<T>(); ++i)
        static_cast<T*>(arrays.first)[i] =
            call(static_cast<const T*>(arrays.x)[i], static_cast<const T*>(arrays.y)[i]);
}

// Both results through pointers.
void sine_cosine_loop(const void* function, const Arrays& arrays)
{
    using T = long double;
    const auto call = reinterpret_cast<void (*)(T, T*, T*)>(reinterpret_cast<std::uintptr_t>(function));
    for (std::size_t i = 0; i < arrays.count<T>(); ++i)
        call(static_cast<const T*>(arrays.x)[i], static_cast<T*>(arrays.first) + i,
             static_cast<T*>(arrays.second) + i);
}
void sinh_cosh_loop(const void* function, const Arrays& arrays)
{
    using T = long double;
    const auto call = reinterpret_cast<void (*)(T*, T*, T)>(reinterpret_cast<std::uintptr_t>(function));
    for (std::size_t i = 0; i < arrays.count<T>(); ++i)
        call(static_cast<T*>(arrays.first) + i, static_cast<T*>(arrays.second) + i,
             static_cast<const T*>(arrays.x)[i]);
}
void sinh_and_cosh(long double* sine, long double* cosine, long double x)
{
    *sine = std::sinh(x);
    *cosine = std::cosh(x);
}

template <class Real, int low, int high>
bool fill_reals(void* x, void* y, std::size_t bytes)
{
    std::mt19937 generator(1); // always the same arguments
    // In hundredths; off the integers, where some functions are simpler.
    std::uniform_real_distribution<double> uniform(low / 100.0, high / 100.0);
    for (std::size_t i = 0; i < bytes / sizeof(Real); ++i) {
        static_cast<Real*>(x)[i] = static_cast<Real>(uniform(generator));
        static_cast<Real*>(y)[i] = static_cast<Real>(uniform(generator));
    }
    return true;
}

template <class T>
using Unary = T (*)(T);
template <class T>
using Binary = T (*)(T, T);

template <class T, int low, int high>
ScalarWorkload unary(const char* routine, Unary<T> libm)
{
    return {routine, reinterpret_cast<const void*>(libm), unary_loop<T>, fill_reals<T, low, high>, sizeof(T)};
}
template <class T, int low, int high>
ScalarWorkload binary(const char* routine, Binary<T> libm)
{
    return {routine, reinterpret_cast<const void*>(libm), binary_loop<T>, fill_reals<T, low, high>,
            sizeof(T)};
}
// Both parts between -4 and 4.
template <class T, class Real>
ScalarWorkload complex(const char* routine, Unary<T> libm)
{
    return {routine, reinterpret_cast<const void*>(libm), unary_loop<T>, fill_reals<Real, -400, 400>,
            sizeof(T)};
}

} // namespace

const std::vector<ScalarWorkload>& scalar_workloads()
{
    using Extended = long double;
    static const std::vector<ScalarWorkload> workloads = {
        unary<double, -99, 99>("acos_scalar", std::acos),
        binary<double, -1000, 1000>("atan2_scalar", std::atan2),
        unary<double, 1, 10000>("sqrt_scalar", std::sqrt),
        unary<float, 1, 10000>("sqrtf_scalar", std::sqrt),
        unary<Extended, 1, 10000>("sqrtl_scalar", std::sqrt),
        unary<double, 1, 10000>("log_scalar", std::log),
        unary<double, -50, 1000>("log1p_scalar", std::log1p),
        complex<ComplexFloat, float>("cexpf_scalar", cexpf),
        complex<ComplexFloat, float>("clogf_scalar", clogf),
        complex<ComplexFloat, float>("csqrtf_scalar", csqrtf),
        complex<ComplexFloat, float>("cacosf_scalar", cacosf),
        complex<ComplexDouble, double>("cexp_scalar", cexp),
        complex<ComplexDouble, double>("clog_scalar", clog),
        complex<ComplexDouble, double>("csqrt_scalar", csqrt),
        complex<ComplexDouble, double>("cacos_scalar", cacos),
        unary<Extended, -2000, 2000>("expl_scalar", std::exp),
        unary<Extended, 1, 10000>("logl_scalar", std::log),
        unary<Extended, -50, 1000>("log1pl_scalar", std::log1p),
        unary<Extended, -1000, 1000>("sinhl_scalar", std::sinh),
        unary<Extended, -1000, 1000>("coshl_scalar", std::cosh),
        {"sinhcoshl_scalar", reinterpret_cast<const void*>(sinh_and_cosh), sinh_cosh_loop,
         fill_reals<Extended, -1000, 1000>, sizeof(Extended)},
        unary<Extended, -500, 500>("tanhl_scalar", std::tanh),
        unary<Extended, -1000, 1000>("asinhl_scalar", std::asinh),
        unary<Extended, 101, 10000>("acoshl_scalar", std::acosh),
        unary<Extended, -99, 99>("atanhl_scalar", std::atanh),
        binary<Extended, 10, 1000>("powl_scalar", std::pow),
        unary<Extended, -1000, 1000>("sinl_scalar", std::sin),
        unary<Extended, -1000, 1000>("cosl_scalar", std::cos),
        unary<Extended, -1000, 1000>("tanl_scalar", std::tan),
        {"sincosl_scalar", reinterpret_cast<const void*>(sincosl), sine_cosine_loop,
         fill_reals<Extended, -1000, 1000>, sizeof(Extended)},
        // Angles in degrees: no function of the C library.
        unary<Extended, -60000, 60000>("sindl_scalar", nullptr),
        unary<Extended, -60000, 60000>("cosdl_scalar", nullptr),
        binary<Extended, -1000, 1000>("atan2dl_scalar", nullptr),
        unary<Extended, -1000, 1000>("atanl_scalar", std::atan),
        binary<Extended, -1000, 1000>("atan2l_scalar", std::atan2),
        unary<Extended, -99, 99>("acosl_scalar", std::acos),
        unary<Extended, -99, 99>("asinl_scalar", std::asin),
    };
    return workloads;
}

} // namespace zelk::bench
