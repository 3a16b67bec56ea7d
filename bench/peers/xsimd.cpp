// xsimd's batches. PEER_ARCH is the instruction set.
#include "table.h"

#include <xsimd/xsimd.hpp>

namespace {

using F = xsimd::batch<float, PEER_ARCH>;
using D = xsimd::batch<double, PEER_ARCH>;

template <class Function>
constexpr PeerFunction unary(const char* name, Function)
{
    return {name, [](__m128 x) -> __m128 { return Function{}(F(x)); },
            [](__m128d x) -> __m128d { return Function{}(D(x)); }, nullptr, nullptr};
}
template <class Function>
constexpr PeerFunction binary(const char* name, Function)
{
    return {name, nullptr, nullptr, [](__m128 x, __m128 y) -> __m128 { return Function{}(F(x), F(y)); },
            [](__m128d x, __m128d y) -> __m128d { return Function{}(D(x), D(y)); }};
}

} // namespace

const PeerFunction peer_functions[] = {
    unary("sin", [](auto x) { return xsimd::sin(x); }),
    unary("cos", [](auto x) { return xsimd::cos(x); }),
    unary("tan", [](auto x) { return xsimd::tan(x); }),
    unary("exp", [](auto x) { return xsimd::exp(x); }),
    unary("exp2", [](auto x) { return xsimd::exp2(x); }),
    unary("log", [](auto x) { return xsimd::log(x); }),
    unary("log2", [](auto x) { return xsimd::log2(x); }),
    unary("log10", [](auto x) { return xsimd::log10(x); }),
    binary("pow", [](auto x, auto y) { return xsimd::pow(x, y); }),
    unary("asin", [](auto x) { return xsimd::asin(x); }),
    unary("acos", [](auto x) { return xsimd::acos(x); }),
    unary("atan", [](auto x) { return xsimd::atan(x); }),
    binary("atan2", [](auto y, auto x) { return xsimd::atan2(y, x); }),
    unary("sinh", [](auto x) { return xsimd::sinh(x); }),
    unary("cosh", [](auto x) { return xsimd::cosh(x); }),
    unary("tanh", [](auto x) { return xsimd::tanh(x); }),
    unary("asinh", [](auto x) { return xsimd::asinh(x); }),
    unary("acosh", [](auto x) { return xsimd::acosh(x); }),
    unary("atanh", [](auto x) { return xsimd::atanh(x); }),
    unary("sqrt", [](auto x) { return xsimd::sqrt(x); }),
    unary("cbrt", [](auto x) { return xsimd::cbrt(x); }),
    unary("erf", [](auto x) { return xsimd::erf(x); }),
    unary("erfc", [](auto x) { return xsimd::erfc(x); }),
    unary("floor", [](auto x) { return xsimd::floor(x); }),
    unary("ceil", [](auto x) { return xsimd::ceil(x); }),
    unary("trunc", [](auto x) { return xsimd::trunc(x); }),
    unary("round", [](auto x) { return xsimd::round(x); }),
    unary("rint", [](auto x) { return xsimd::rint(x); }),
    unary("nearbyint", [](auto x) { return xsimd::nearbyint(x); }),
    {},
};
