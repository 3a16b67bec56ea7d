#include "functions.h"

#include "exact.h"
#include "exact_values.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace zelk::accuracy {

namespace {

// By IEEE 754 the pole keeps the zero's sign.
void reciprocal_square_root(mpfr_ptr first, mpfr_ptr, mpfr_srcptr x, mpfr_srcptr)
{
    mpfr_rec_sqrt(first, x, MPFR_RNDN);
    if (mpfr_zero_p(x)) mpfr_setsign(first, first, mpfr_signbit(x), MPFR_RNDN);
}
// In a few more bits than asked for, so that two roundings are as good as one.
void reciprocal_cube_root(mpfr_ptr first, mpfr_ptr, mpfr_srcptr x, mpfr_srcptr)
{
    mpfr_cbrt(first, x, MPFR_RNDN);
    mpfr_ui_div(first, 1, first, MPFR_RNDN);
}
void sum_with_itself(mpfr_ptr first, mpfr_ptr, mpfr_srcptr x, mpfr_srcptr)
{
    mpfr_mul_2ui(first, x, 1, MPFR_RNDN);
}
// The quotient has fewer than 66 bits in front of the next integer: no rounding reaches it.
void quotient(mpfr_ptr first, mpfr_ptr, mpfr_srcptr x, mpfr_srcptr y)
{
    mpfr_div(first, x, y, MPFR_RNDN);
    mpfr_trunc(first, first);
}
void quotient_and_remainder(mpfr_ptr first, mpfr_ptr second, mpfr_srcptr x, mpfr_srcptr y)
{
    quotient(first, nullptr, x, y);
    mpfr_mul(second, first, y, MPFR_RNDN);
    mpfr_sub(second, x, second, MPFR_RNDN);
}
void remainder(mpfr_ptr first, mpfr_ptr, mpfr_srcptr x, mpfr_srcptr y)
{
    mpfr_fmod(first, x, y, MPFR_RNDN);
}

const Edge single_fast{10000, "10000"};
const Edge double_fast{0x1.f4000ffffffffp16, "128000"}; // the last below 128000.0625
const Edge double_fast_cosine{128000, "128000"};
const Edge two_30{0x1p30, "2^30"};
const Edge half{0.5, "1/2"};
const Edge one{1, "1"};
const Edge small{0x1p-8, "2^-8"};

std::vector<Function> make_functions()
{
    std::vector<Function> list = {
        {"sinf4", "sine and cosine", unary<mpfr_sin>, {single_fast, two_30}},
        {"cosf4", "sine and cosine", unary<mpfr_cos>, {single_fast, two_30}},
        {"sin2", "sine and cosine", unary<mpfr_sin>, {double_fast, two_30}},
        {"cos2", "sine and cosine", unary<mpfr_cos>, {double_fast_cosine, two_30}},
        {"tanf4", "tangent", unary<mpfr_tan>, {single_fast, two_30}},
        {"tan2", "tangent", unary<mpfr_tan>, {double_fast_cosine, two_30}},
        {"sincosf4", "sine-cosine pairs", sine_and_cosine, {single_fast, two_30}},
        {"sincos2", "sine-cosine pairs", sine_and_cosine, {double_fast, two_30}},
        {"ropsSinCos4", "sine-cosine pairs", sine_and_cosine, {single_fast, two_30}},
        {"ropdSinCos2", "sine-cosine pairs", sine_and_cosine, {double_fast, two_30}},

        {"expf4", "exponentials", unary<mpfr_exp>, {small, {86.5, "86.5"}, {105, "105"}}},
        {"exp2f4", "exponentials", unary<mpfr_exp2>, {small, {123.5, "123.5"}, {150, "150"}}},
        {"exp2", "exponentials", unary<mpfr_exp>, {small, {704, "704"}, {768, "768"}}},
        {"exp22", "exponentials", unary<mpfr_exp2>, {small, {1022, "1022"}, {1076, "1076"}}},

        {"logf4", "logarithms", unary<mpfr_log>, {half, {2, "2"}}},
        {"log2f4", "logarithms", unary<mpfr_log2>, {half, {2, "2"}}},
        {"log10f4", "logarithms", unary<mpfr_log10>, {half, {2, "2"}}},
        {"log2", "logarithms", unary<mpfr_log>, {{0.875, "7/8"}, {1.125, "9/8"}}},
        {"log22", "logarithms", unary<mpfr_log2>, {{0.875, "7/8"}, {1 - 0x1p-9, "1 - 2^-9"}, {1.125, "9/8"}}},
        {"log102", "logarithms", unary<mpfr_log10>, {{0.875, "7/8"}, {1.125, "9/8"}}},
        {"powf4", "powers", binary<mpfr_pow>, {one}, Pairs::power},
        {"pow2", "powers", binary<mpfr_pow>, {one, {1 + 0x1p-11, "1 + 2^-11"}}, Pairs::power},

        {"asinf4", "arc sine and cosine", unary<mpfr_asin>, {half, one}},
        {"acosf4", "arc sine and cosine", unary<mpfr_acos>, {half, one}},
        {"asin2", "arc sine and cosine", unary<mpfr_asin>, {half, one}},
        {"acos2", "arc sine and cosine", unary<mpfr_acos>, {half, one}},
        {"atanf4", "arc tangent", unary<mpfr_atan>, {one}},
        {"atan2", "arc tangent", unary<mpfr_atan>, {one}},
        {"atan2f4", "arc tangent", binary<mpfr_atan2>, {}, Pairs::ratio},
        {"atan22", "arc tangent", binary<mpfr_atan2>, {}, Pairs::ratio},

        {"sinhf4", "hyperbolic", unary<mpfr_sinh>, {{0.0003, "0.0003"}, {0.35, "0.35"}, {90, "90"}}},
        {"coshf4", "hyperbolic", unary<mpfr_cosh>, {{0.0003, "0.0003"}, {0.35, "0.35"}, {90, "90"}}},
        {"tanhf4", "hyperbolic", unary<mpfr_tanh>, {{0x1p-5, "1/32"}, {10, "10"}}},
        {"sinh2",
         "hyperbolic",
         unary<mpfr_sinh>,
         {small, {0.02, "0.02"}, one, {22, "22"}, {708.375, "708.375"}}},
        {"cosh2",
         "hyperbolic",
         unary<mpfr_cosh>,
         {small, {0.02, "0.02"}, one, {22, "22"}, {708.375, "708.375"}}},
        {"tanh2", "hyperbolic", unary<mpfr_tanh>, {small, {0.02, "0.02"}, one, {22, "22"}}},
        {"asinhf4", "inverse hyperbolic", unary<mpfr_asinh>, {small, one, {1e19, "1e19"}}},
        {"acoshf4", "inverse hyperbolic", unary<mpfr_acosh>, {one, {1.5, "1.5"}, {1e19, "1e19"}}},
        {"atanhf4", "inverse hyperbolic", unary<mpfr_atanh>, {{0.25, "1/4"}, one}},
        {"asinh2", "inverse hyperbolic", unary<mpfr_asinh>, {one, {1e154, "1e154"}}},
        {"acosh2",
         "inverse hyperbolic",
         unary<mpfr_acosh>,
         {one, {1.500000476837158, "1.5"}, {1e154, "1e154"}}},
        {"atanh2", "inverse hyperbolic", unary<mpfr_atanh>, {{0.25, "1/4"}, one}},

        {"sqrtf4", "roots", unary<mpfr_sqrt>, {}},
        {"sqrt2", "roots", unary<mpfr_sqrt>, {}},
        {"invsqrtf4", "roots", reciprocal_square_root, {}},
        {"invsqrt2", "roots", reciprocal_square_root, {{0x1p1022, "2^1022"}}},
        {"cbrtf4", "roots", unary<mpfr_cbrt>, {}},
        {"cbrt2", "roots", unary<mpfr_cbrt>, {}},
        {"invcbrtf4", "roots", reciprocal_cube_root, {}},
        {"invcbrt2", "roots", reciprocal_cube_root, {}},

        {"erff4", "error functions", unary<mpfr_erf>, {half, one, {4, "4"}}},
        {"erf2", "error functions", unary<mpfr_erf>, {half, one, {6, "6"}}},
        {"erfcf4", "error functions", unary<mpfr_erfc>, {half, one, {10.1, "10.1"}}},
        {"erfc2", "error functions", unary<mpfr_erfc>, {half, one, {27.3, "27.3"}}},
        {"erfinvf4", "error functions", sum_with_itself, {}},
        {"erfinv2", "error functions", sum_with_itself, {}},
        {"hypotf4", "error functions", binary<mpfr_add>, {}, Pairs::ratio},
        {"hypot2", "error functions", binary<mpfr_add>, {}, Pairs::ratio},

        {"cexpf2", "complex", complex<mpc_exp>, {}},
        {"clogf2", "complex", complex<mpc_log>, {}},
        {"csqrtf2", "complex", complex<mpc_sqrt>, {}},
        {"cacosf2", "complex", complex_arc_cosine, {}},
    };
    for (const char* const name :
         {"cacoshf2", "casinf2", "casinhf2", "catanf2", "catanhf2", "ccosf2", "ccoshf2", "clog10f2",
          "clog2f2", "cpowf2", "csinf2", "csinhf2", "ctanf2", "ctanhf2"})
        list.push_back({name, "complex", first_argument, {}});
    const struct {
        const char* name;
        Evaluate evaluate;
    } roundings[] = {{"ceil", unary<mpfr_rint_ceil>},      {"floor", unary<mpfr_rint_floor>},
                     {"trunc", unary<mpfr_rint_trunc>},    {"round", unary<mpfr_rint_round>},
                     {"rint", unary<mpfr_rint_roundeven>}, {"nearbyint", unary<mpfr_rint_roundeven>}};
    static std::vector<std::string> names;
    names.reserve(20);
    for (const auto& rounding : roundings)
        for (const bool is_single : {true, false}) {
            names.push_back(std::string(rounding.name) + (is_single ? "f4" : "2"));
            const Edge last = is_single ? Edge{0x1p23, "2^23"} : Edge{0x1p52, "2^52"};
            list.push_back({names.back().c_str(),
                            "rounding",
                            rounding.evaluate,
                            {half, last},
                            Pairs::none,
                            rounding.evaluate == unary<mpfr_rint_roundeven>});
        }
    for (const char* const name : {"idiv4", "udiv4"})
        list.push_back({name, "integer division", quotient, {}, Pairs::division});
    for (const char* const name : {"irem4", "urem4"})
        list.push_back({name, "integer division", remainder, {}, Pairs::division});
    for (const char* const name : {"idivrem4", "udivrem4", "ropiDivRem4", "ropuDivRem4"})
        list.push_back({name, "integer division", quotient_and_remainder, {}, Pairs::division});
    static constexpr const char* sine_cosine[] = {"sine: ", "cosine: "};
    static constexpr const char* division[] = {"quotient: ", "remainder: "};
    static constexpr const char* real_imaginary[] = {"real part: ", "imaginary part: "};
    for (Function& function : list) {
        const std::string_view family = function.family;
        function.is_circular =
            family == "sine and cosine" || family == "tangent" || family == "sine-cosine pairs";
        if (family == "sine-cosine pairs") std::ranges::copy(sine_cosine, function.parts);
        if (family == "integer division") std::ranges::copy(division, function.parts);
        if (family == "complex") std::ranges::copy(real_imaginary, function.parts);
    }
    std::ranges::move(scalar_functions(), std::back_inserter(list));
    return list;
}

Entry as_entry(const ScalarEntry& scalar)
{
    Entry entry{};
    entry.name = scalar.name;
    entry.symbol = scalar.name;
    entry.signature = scalar.signature;
    entry.results = scalar.signature[0] == 'v' || scalar.signature[0] == 'i' ? Results::two : Results::one;
    for (const char kind : scalar.signature.substr(2)) {
        if (kind == 'L' || kind == 'D') continue; // where results are stored
        ++entry.args;
        entry.lanes = kind == 'f'   ? Lanes::f
                      : kind == 'd' ? Lanes::d
                      : kind == 'l' ? Lanes::l
                      : kind == 'c' ? Lanes::c
                                    : Lanes::z;
    }
    std::string tiers = scalar.tiers;
    std::ranges::sort(tiers);
    for (const char tier : tiers) {
        const std::string symbol = scalar.name + '.' + tier;
        entry.kernels.push_back({symbol, tier, exported(symbol)});
    }
    if (tiers.empty()) entry.kernels.push_back({scalar.name, '-', exported(scalar.name)});
    return entry;
}

} // namespace

void complex_arc_cosine(mpfr_ptr first, mpfr_ptr second, mpfr_srcptr x, mpfr_srcptr y)
{
    const mpfr_prec_t precision = mpfr_get_prec(first) + 24;
    Complex below(precision); // sqrt(1 - z)
    Complex above(precision); // sqrt(1 + z)
    mpfr_ui_sub(mpc_realref(below.value), 1, x, MPFR_RNDN);
    mpfr_neg(mpc_imagref(below.value), y, MPFR_RNDN);
    mpfr_add_ui(mpc_realref(above.value), x, 1, MPFR_RNDN);
    mpfr_set(mpc_imagref(above.value), y, MPFR_RNDN);
    mpc_sqrt(below.value, below.value, MPC_RNDNN);
    mpc_sqrt(above.value, above.value, MPC_RNDNN);

    // The parts of both roots have such signs that nothing cancels.
    Exact part(precision);
    mpfr_atan2(part.value, mpc_realref(below.value), mpc_realref(above.value), MPFR_RNDN);
    mpfr_mul_2ui(first, part.value, 1, MPFR_RNDN);
    mpfr_fmms(part.value, mpc_realref(above.value), mpc_imagref(below.value), mpc_imagref(above.value),
              mpc_realref(below.value), MPFR_RNDN);
    mpfr_asinh(second, part.value, MPFR_RNDN);
}

const std::vector<Function>& functions()
{
    static const std::vector<Function> list = make_functions();
    return list;
}

const Function* find_function(std::string_view entry)
{
    for (const Function& function : functions())
        if (entry == function.entry) return &function;
    return nullptr;
}

const std::vector<Entry>& surveyed()
{
    static const std::vector<Entry> list = [] {
        std::vector<Entry> all(entries().begin(), entries().end());
        for (const ScalarEntry& scalar : scalar_entries())
            all.push_back(as_entry(scalar));
        return all;
    }();
    return list;
}

const Entry* find_surveyed(std::string_view name)
{
    const auto found = std::ranges::find(surveyed(), name, &Entry::name);
    return found == surveyed().end() ? nullptr : &*found;
}

Format format_of(Lanes lanes)
{
    if (is_integer(lanes)) return integer32;
    if (lanes == Lanes::l) return extended80;
    return lanes == Lanes::d2 || lanes == Lanes::d || lanes == Lanes::z ? binary64 : binary32;
}

Format result_format(const Entry& entry)
{
    return entry.signature.starts_with('i') ? binary64 : format_of(entry.lanes);
}

std::vector<std::string> paths(const Function& function)
{
    std::vector<std::string> names;
    switch (function.pairs) {
    case Pairs::none:
        if (function.edges.empty()) {
            names = {"normal x"};
        } else {
            names.push_back(std::string("|x| <= ") + function.edges.front().text);
            for (std::size_t i = 1; i < function.edges.size(); ++i)
                names.push_back(std::string(function.edges[i - 1].text) +
                                " < |x| <= " + function.edges[i].text);
            names.push_back(std::string("|x| > ") + function.edges.back().text);
        }
        break;
    case Pairs::power:
        names = {"0.9 < |x| < 1.1", "other x"};
        break;
    case Pairs::ratio:
        names = {"|first| <= |second|", "|first| > |second|"};
        break;
    case Pairs::division:
        names = {"any divisor but 0"};
        break;
    }
    names.push_back("subnormal arguments");
    names.push_back("subnormal results");
    return names;
}

std::size_t path_of(const Function& function, const Format& format, long double x, long double y,
                    const Reference& result)
{
    const long double smallest_normal = std::ldexp(1.0L, format.min_exponent - 1);
    const auto is_subnormal = [&](long double value) {
        return value != 0 && std::fabs(value) < smallest_normal;
    };
    const std::size_t count = function.pairs == Pairs::none       ? function.edges.size() + 1
                              : function.pairs == Pairs::division ? 1
                                                                  : 2;
    if (function.pairs == Pairs::division) return 0;
    if (is_subnormal(x) || is_subnormal(y)) return count;
    if (result.is_subnormal()) return count + 1;
    if (function.pairs == Pairs::power) return std::fabs(x) > 0.9 && std::fabs(x) < 1.1 ? 0 : 1;
    if (function.pairs == Pairs::ratio) return std::fabs(x) > std::fabs(y);
    const auto edge =
        std::ranges::find_if(function.edges, [&](const Edge& e) { return std::fabs(x) <= e.value; });
    return static_cast<std::size_t>(edge - function.edges.begin());
}

} // namespace zelk::accuracy
