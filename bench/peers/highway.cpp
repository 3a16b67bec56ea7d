// Highway's math functions, for the instruction set that this file is compiled for.
#include "table.h"

#include <hwy/contrib/math/math-inl.h>
#include <hwy/highway.h>

namespace {

namespace hn = hwy::HWY_NAMESPACE;

constexpr hn::CappedTag<float, 4> f;
constexpr hn::CappedTag<double, 2> d;
static_assert(hn::MaxLanes(f) == 4, "not a vector library for this instruction set");

template <class Function>
constexpr PeerFunction unary(const char* name, Function)
{
    return {name, [](__m128 x) -> __m128 { return Function{}(f, hn::Vec<decltype(f)>{x}).raw; },
            [](__m128d x) -> __m128d { return Function{}(d, hn::Vec<decltype(d)>{x}).raw; }, nullptr,
            nullptr};
}

} // namespace

const PeerFunction peer_functions[] = {
    unary("sin", [](auto tag, auto x) { return hn::Sin(tag, x); }),
    unary("cos", [](auto tag, auto x) { return hn::Cos(tag, x); }),
    unary("exp", [](auto tag, auto x) { return hn::Exp(tag, x); }),
    unary("log", [](auto tag, auto x) { return hn::Log(tag, x); }),
    unary("log2", [](auto tag, auto x) { return hn::Log2(tag, x); }),
    unary("log10", [](auto tag, auto x) { return hn::Log10(tag, x); }),
    unary("asin", [](auto tag, auto x) { return hn::Asin(tag, x); }),
    unary("acos", [](auto tag, auto x) { return hn::Acos(tag, x); }),
    unary("atan", [](auto tag, auto x) { return hn::Atan(tag, x); }),
    unary("sinh", [](auto tag, auto x) { return hn::Sinh(tag, x); }),
    unary("tanh", [](auto tag, auto x) { return hn::Tanh(tag, x); }),
    unary("asinh", [](auto tag, auto x) { return hn::Asinh(tag, x); }),
    unary("acosh", [](auto tag, auto x) { return hn::Acosh(tag, x); }),
    unary("atanh", [](auto tag, auto x) { return hn::Atanh(tag, x); }),
    unary("sqrt", [](auto, auto x) { return hn::Sqrt(x); }),
    unary("floor", [](auto, auto x) { return hn::Floor(x); }),
    unary("ceil", [](auto, auto x) { return hn::Ceil(x); }),
    unary("trunc", [](auto, auto x) { return hn::Trunc(x); }),
    unary("rint", [](auto, auto x) { return hn::Round(x); }),
    {},
};
