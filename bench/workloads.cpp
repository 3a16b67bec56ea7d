#include "workloads.h"

#include <cmath>
#include <complex>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

namespace zelk::bench {

namespace {

template <class Element>
struct VectorOf {
    typedef Element type __attribute__((vector_size(16)));
};
template <class Element>
using Vector = typename VectorOf<Element>::type;

// The scalar code of one lane, a stateless callable, made a function of a vector: one call for each lane.
template <class V, class Function>
V unary_lanes(V x)
{
    if constexpr (sizeof x[0] == 8)
        return V{Function{}(x[0]), Function{}(x[1])};
    else
        return V{Function{}(x[0]), Function{}(x[1]), Function{}(x[2]), Function{}(x[3])};
}

template <class V, class Function>
V binary_lanes(V x, V y)
{
    if constexpr (sizeof x[0] == 8)
        return V{Function{}(x[0], y[0]), Function{}(x[1], y[1])};
    else
        return V{Function{}(x[0], y[0]), Function{}(x[1], y[1]), Function{}(x[2], y[2]),
                 Function{}(x[3], y[3])};
}

// The callable stores both results.
template <class Element, int arguments, class Function>
Two<Vector<Element>> two_result_lanes(Vector<Element> x, Vector<Element> y)
{
    Element first[16 / sizeof(Element)], second[16 / sizeof(Element)];
    for (std::size_t i = 0; i < std::size(first); ++i)
        if constexpr (arguments == 1)
            Function{}(x[i], first[i], second[i]);
        else
            Function{}(x[i], y[i], first[i], second[i]);
    Two<Vector<Element>> both;
    std::memcpy(&both.first, first, sizeof first);
    std::memcpy(&both.second, second, sizeof second);
    return both;
}

template <class Function>
__m128 complex_lanes(__m128 z)
{
    const std::complex<float> low = Function{}(std::complex<float>(z[0], z[1]));
    const std::complex<float> high = Function{}(std::complex<float>(z[2], z[3]));
    return __m128{low.real(), low.imag(), high.real(), high.imag()};
}

template <class Result, class... Vectors>
const void* address_of(Result (*function)(Vectors...))
{
    return reinterpret_cast<const void*>(function);
}

// The scalar code beside a float4 entry and beside its double2 twin.
struct Scalar {
    const void* single = nullptr;
    const void* twin = nullptr;
    Convention convention = Convention::one;
};

template <class Function>
Scalar unary(Function)
{
    return {address_of(unary_lanes<__m128, Function>), address_of(unary_lanes<__m128d, Function>)};
}
template <class Function>
Scalar binary(Function)
{
    return {address_of(binary_lanes<__m128, Function>), address_of(binary_lanes<__m128d, Function>)};
}
template <class Function>
Scalar complex(Function)
{
    return {address_of(complex_lanes<Function>)};
}
template <class Element, class Function>
Scalar integer(Function)
{
    return {address_of(binary_lanes<Vector<Element>, Function>)};
}
template <class Element, class Function>
Scalar integer_pair(Function)
{
    return {address_of(two_result_lanes<Element, 2, Function>), nullptr, Convention::structure};
}
const Scalar none;

// sincos is no standard C++, and has a name for each precision.
constexpr auto sine_and_cosine_of = [](auto x, auto& sine, auto& cosine) {
    if constexpr (sizeof x == sizeof(float))
        sincosf(x, &sine, &cosine);
    else
        sincos(x, &sine, &cosine);
};
using SineAndCosine = decltype(sine_and_cosine_of);
const Scalar sine_and_cosine{address_of(two_result_lanes<float, 1, SineAndCosine>),
                             address_of(two_result_lanes<double, 1, SineAndCosine>), Convention::structure};

// Names of the C library itself, which the compiler does not expand (bench/CMakeLists.txt).
#define ZELK_ROUNDING(name)                                                                                  \
    unary([](auto x) {                                                                                       \
        if constexpr (sizeof x == sizeof(float))                                                             \
            return ::name##f(x);                                                                             \
        else                                                                                                 \
            return ::name(x);                                                                                \
    })

constexpr auto quotient = [](auto a, auto b) { return a / b; };
constexpr auto remainder = [](auto a, auto b) { return a % b; };
constexpr auto quotient_and_remainder = [](auto a, auto b, auto& q, auto& r) {
    q = a / b;
    r = a % b;
};

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

constexpr Arguments one(Range ordinary, Range wide, Range large, double a, double b, double c, double d)
{
    return {{ordinary, {}}, {wide, {}}, {large, {}}, {a, b, c, d}, nan};
}
constexpr Range huge{-1e30, 1e30, 1e6};
constexpr Range positive{0, 1e30, 1e-30};
constexpr Range any_magnitude{-1e30, 1e30, 1e-30};

constexpr Arguments circular = one({-10, 10}, {-1e4, 1e4, 1e-6}, huge, nan, inf, -inf, nan);
constexpr Arguments exponential = one({-20, 20}, {-80, 80}, {}, nan, inf, -inf, 1e4);
constexpr Arguments logarithm = one({0.001, 1000}, positive, {0, 1e38, 1e30}, nan, inf, 0, -1);
constexpr Arguments inverse_circular = one({-0.99, 0.99}, {-1, 1, 1e-20}, {}, nan, inf, -1.5, 2);
constexpr Arguments hyperbolic = one({-10, 10}, {-80, 80, 1e-6}, {}, nan, inf, -inf, 1e4);
constexpr Arguments root = one({0.01, 100}, positive, {0, 1e38, 1e30}, nan, inf, 0, -1);
constexpr Arguments rounding = one({-1000, 1000}, any_magnitude, huge, nan, inf, -inf, 0);
constexpr Arguments error_function = one({-3, 3}, {-10, 10, 1e-20}, huge, nan, inf, -inf, nan);
constexpr Arguments plane{
    {{-4, 4}, {-4, 4}}, {{-40, 40, 1e-10}, {-40, 40, 1e-10}}, {}, {nan, inf, -inf, 0}, nan};
// A special dividend or divisor: the quotient or the processor's division does not exist for it.
constexpr Arguments signed_division{{{-2147483647, 2147483647}, {-100000, 100000}},
                                    {{-2147483647, 2147483647, 1}, {-2147483647, 2147483647, 1}},
                                    {},
                                    {-2147483648.0, -2147483648.0, -2147483648.0, -2147483648.0},
                                    nan};
constexpr Arguments unsigned_division{{{0, 4294967295}, {1, 100000}},
                                      {{0, 4294967295, 1}, {0, 4294967295, 1}},
                                      {},
                                      {4294967295, 4294967295, 4294967295, 4294967295},
                                      1};
constexpr Arguments power{{{0.1, 10}, {-5, 5}}, {positive, {-1, 1}}, {}, {0, -2, inf, nan}, nan};
constexpr Arguments angle{
    {{-10, 10}, {-10, 10}}, {any_magnitude, any_magnitude}, {huge, huge}, {0, -inf, inf, nan}, nan};

struct Row {
    std::string_view function;
    std::string_view single;
    std::string_view twin;
    Arguments arguments;
    Scalar scalar;
    Exact exact;
};

// Every vector function of the list.
const Row rows[] = {
    {"sin", "sinf4", "sin2", circular, unary([](auto x) { return std::sin(x); }), {mpfr_sin}},
    {"cos", "cosf4", "cos2", circular, unary([](auto x) { return std::cos(x); }), {mpfr_cos}},
    {"tan", "tanf4", "tan2", circular, unary([](auto x) { return std::tan(x); }), {mpfr_tan}},
    {"sincos", "sincosf4", "sincos2", circular, sine_and_cosine, {mpfr_sin}},
    {"sincos", "ropsSinCos4", "ropdSinCos2", circular, sine_and_cosine, {mpfr_sin}},

    // The entries exp2 and log2 are e^x and ln x on double2, exp22 and log22 their base-2 forms.
    {"exp", "expf4", "exp2", exponential, unary([](auto x) { return std::exp(x); }), {mpfr_exp}},
    {"exp2", "exp2f4", "exp22", exponential, unary([](auto x) { return std::exp2(x); }), {mpfr_exp2}},
    {"log", "logf4", "log2", logarithm, unary([](auto x) { return std::log(x); }), {mpfr_log}},
    {"log2", "log2f4", "log22", logarithm, unary([](auto x) { return std::log2(x); }), {mpfr_log2}},
    {"log10", "log10f4", "log102", logarithm, unary([](auto x) { return std::log10(x); }), {mpfr_log10}},
    {"pow",
     "powf4",
     "pow2",
     power,
     binary([](auto x, auto y) { return std::pow(x, y); }),
     {nullptr, mpfr_pow}},

    {"acos", "acosf4", "acos2", inverse_circular, unary([](auto x) { return std::acos(x); }), {mpfr_acos}},
    {"asin", "asinf4", "asin2", inverse_circular, unary([](auto x) { return std::asin(x); }), {mpfr_asin}},
    {"atan",
     "atanf4",
     "atan2",
     one({-10, 10}, any_magnitude, huge, nan, inf, -inf, 0),
     unary([](auto x) { return std::atan(x); }),
     {mpfr_atan}},
    {"atan2",
     "atan2f4",
     "atan22",
     angle,
     binary([](auto y, auto x) { return std::atan2(y, x); }),
     {nullptr, mpfr_atan2}},

    {"sinh", "sinhf4", "sinh2", hyperbolic, unary([](auto x) { return std::sinh(x); }), {mpfr_sinh}},
    {"cosh", "coshf4", "cosh2", hyperbolic, unary([](auto x) { return std::cosh(x); }), {mpfr_cosh}},
    {"tanh",
     "tanhf4",
     "tanh2",
     one({-5, 5}, any_magnitude, huge, nan, inf, -inf, 0),
     unary([](auto x) { return std::tanh(x); }),
     {mpfr_tanh}},
    {"asinh",
     "asinhf4",
     "asinh2",
     one({-10, 10}, any_magnitude, huge, nan, inf, -inf, 0),
     unary([](auto x) { return std::asinh(x); }),
     {mpfr_asinh}},
    {"acosh",
     "acoshf4",
     "acosh2",
     one({1.01, 100}, {1, 1e30, 1}, {0, 1e38, 1e30}, nan, inf, 0.5, -1),
     unary([](auto x) { return std::acosh(x); }),
     {mpfr_acosh}},
    {"atanh",
     "atanhf4",
     "atanh2",
     inverse_circular,
     unary([](auto x) { return std::atanh(x); }),
     {mpfr_atanh}},

    {"sqrt", "sqrtf4", "sqrt2", root, unary([](auto x) { return std::sqrt(x); }), {mpfr_sqrt}},
    {"rsqrt", "invsqrtf4", "invsqrt2", root, unary([](auto x) { return 1 / std::sqrt(x); }), {mpfr_rec_sqrt}},
    {"cbrt",
     "cbrtf4",
     "cbrt2",
     one({-100, 100}, any_magnitude, huge, nan, inf, -inf, 0),
     unary([](auto x) { return std::cbrt(x); }),
     {mpfr_cbrt}},
    {"rcbrt",
     "invcbrtf4",
     "invcbrt2",
     one({0.01, 100}, any_magnitude, huge, nan, inf, -inf, 0),
     unary([](auto x) { return 1 / std::cbrt(x); }),
     {}},
    {"erf", "erff4", "erf2", error_function, unary([](auto x) { return std::erf(x); }), {mpfr_erf}},
    {"erfc", "erfcf4", "erfc2", error_function, unary([](auto x) { return std::erfc(x); }), {mpfr_erfc}},
    // These two are x + x and x + y: nothing to stand beside.
    {"x + x", "erfinvf4", "erfinv2", one({-0.99, 0.99}, any_magnitude, {}, nan, inf, -inf, 0), none, {}},
    {"x + y", "hypotf4", "hypot2", angle, none, {}},

    {"ceil", "ceilf4", "ceil2", rounding, ZELK_ROUNDING(ceil), {mpfr_rint_ceil}},
    {"floor", "floorf4", "floor2", rounding, ZELK_ROUNDING(floor), {mpfr_rint_floor}},
    {"trunc", "truncf4", "trunc2", rounding, ZELK_ROUNDING(trunc), {mpfr_rint_trunc}},
    {"round", "roundf4", "round2", rounding, ZELK_ROUNDING(round), {mpfr_rint_round}},
    {"rint", "rintf4", "rint2", rounding, ZELK_ROUNDING(rint), {mpfr_rint_roundeven}},
    {"nearbyint", "nearbyintf4", "nearbyint2", rounding, ZELK_ROUNDING(nearbyint), {mpfr_rint_roundeven}},

    {"a / b", "idiv4", {}, signed_division, integer<std::int32_t>(quotient), {}},
    {"a % b", "irem4", {}, signed_division, integer<std::int32_t>(remainder), {}},
    {"a / b, a % b", "idivrem4", {}, signed_division, integer_pair<std::int32_t>(quotient_and_remainder), {}},
    {"a / b, a % b",
     "ropiDivRem4",
     {},
     signed_division,
     integer_pair<std::int32_t>(quotient_and_remainder),
     {}},
    {"a / b", "udiv4", {}, unsigned_division, integer<std::uint32_t>(quotient), {}},
    {"a % b", "urem4", {}, unsigned_division, integer<std::uint32_t>(remainder), {}},
    {"a / b, a % b",
     "udivrem4",
     {},
     unsigned_division,
     integer_pair<std::uint32_t>(quotient_and_remainder),
     {}},
    {"a / b, a % b",
     "ropuDivRem4",
     {},
     unsigned_division,
     integer_pair<std::uint32_t>(quotient_and_remainder),
     {}},

    {"cacos", "cacosf2", {}, plane, complex([](auto z) { return std::acos(z); }), {}},
    {"cexp", "cexpf2", {}, plane, complex([](auto z) { return std::exp(z); }), {}},
    {"clog", "clogf2", {}, plane, complex([](auto z) { return std::log(z); }), {}},
    {"csqrt", "csqrtf2", {}, plane, complex([](auto z) { return std::sqrt(z); }), {}},
    // These return their argument.
    {"z", "cacoshf2", {}, plane, none, {}},
    {"z", "casinf2", {}, plane, none, {}},
    {"z", "casinhf2", {}, plane, none, {}},
    {"z", "catanf2", {}, plane, none, {}},
    {"z", "catanhf2", {}, plane, none, {}},
    {"z", "ccosf2", {}, plane, none, {}},
    {"z", "ccoshf2", {}, plane, none, {}},
    {"z", "clog10f2", {}, plane, none, {}},
    {"z", "clog2f2", {}, plane, none, {}},
    {"z", "cpowf2", {}, plane, none, {}},
    {"z", "csinf2", {}, plane, none, {}},
    {"z", "csinhf2", {}, plane, none, {}},
    {"z", "ctanf2", {}, plane, none, {}},
    {"z", "ctanhf2", {}, plane, none, {}},
};

#undef ZELK_ROUNDING

} // namespace

std::optional<Workload> find_workload(std::string_view entry)
{
    for (const Row& row : rows)
        if (entry == row.single || entry == row.twin) {
            const bool single = entry == row.single;
            return Workload{row.function, row.arguments, single ? row.scalar.single : row.scalar.twin,
                            row.scalar.convention, row.exact};
        }
    return std::nullopt;
}

} // namespace zelk::bench
