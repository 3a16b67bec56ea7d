// What the scalar routines compute.
#include "exact_values.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <utility>

#include "exact.h"

namespace zelk::accuracy {

namespace {

constexpr const char* extended = "scalar routines of 80-bit numbers";
constexpr const char* narrow = "scalar routines of binary64 and binary32 numbers";
constexpr const char* of_complex = "scalar routines of complex numbers";

int sine_of_degrees(mpfr_ptr result, mpfr_srcptr x, mpfr_rnd_t rounding)
{
    return mpfr_sinu(result, x, 360, rounding);
}
int cosine_of_degrees(mpfr_ptr result, mpfr_srcptr x, mpfr_rnd_t rounding)
{
    return mpfr_cosu(result, x, 360, rounding);
}
int angle_in_degrees(mpfr_ptr result, mpfr_srcptr y, mpfr_srcptr x, mpfr_rnd_t rounding)
{
    return mpfr_atan2u(result, y, x, 360, rounding);
}
void hyperbolic_pair(mpfr_ptr first, mpfr_ptr second, mpfr_srcptr x, mpfr_srcptr)
{
    mpfr_sinh(first, x, MPFR_RNDN); // mpfr_sinh_cosh takes seconds for the smallest x
    mpfr_cosh(second, x, MPFR_RNDN);
}

// x less the nearest multiple of pi/2, and the octant of x.
void reduced_argument(mpfr_ptr first, mpfr_ptr second, mpfr_srcptr x, mpfr_srcptr)
{
    if (!mpfr_number_p(x)) {
        mpfr_set_nan(first);
        mpfr_set_zero(second, 1);
        return;
    }
    const mpfr_prec_t integer_bits = std::max<mpfr_exp_t>(mpfr_zero_p(x) ? 0 : mpfr_get_exp(x), 0);
    // The multiple's bits, as many that may cancel, and those of the result.
    const mpfr_prec_t precision = integer_bits + 80 + mpfr_get_prec(first) + 64;
    Exact half_pi(precision);
    Exact quotient(precision);
    Exact octant(precision);
    mpfr_const_pi(half_pi.value, MPFR_RNDN);
    mpfr_div_2ui(half_pi.value, half_pi.value, 1, MPFR_RNDN);
    mpfr_div(quotient.value, x, half_pi.value, MPFR_RNDN);
    mpfr_mul_2ui(octant.value, quotient.value, 1, MPFR_RNDN);
    mpfr_floor(octant.value, octant.value);
    Exact modulus(8);
    mpfr_set_ui(modulus.value, 8, MPFR_RNDN);
    mpfr_fmod(second, octant.value, modulus.value, MPFR_RNDN);
    if (mpfr_sgn(second) < 0) mpfr_add_ui(second, second, 8, MPFR_RNDN);
    mpfr_abs(second, second, MPFR_RNDN); // no negative zero
    mpfr_rint_round(quotient.value, quotient.value, MPFR_RNDN);
    if (mpfr_zero_p(quotient.value)) {
        mpfr_set(first, x, MPFR_RNDN);
        return;
    }
    mpfr_mul(quotient.value, quotient.value, half_pi.value, MPFR_RNDN);
    mpfr_sub(first, x, quotient.value, MPFR_RNDN);
}

const Edge half{0.5, "1/2"};
const Edge one{1, "1"};
const Edge quarter_pi{0xC.90FDAA22168C235p-4L, "pi/4"};
const Edge two_minus_9{0x1p-9, "2^-9"};
const Edge sixteenth{0x1p-4, "1/16"};
const Edge eighth{0x1p-3, "1/8"};
const Edge hyperbolic_overflow{11357.216553474703895L, "11357.2"};
const Edge two_63{0x1p63, "2^63"};

std::vector<Function> extended_functions()
{
    Function pair{"sinhcoshl_scalar", extended, hyperbolic_pair, {eighth, {40, "40"}, hyperbolic_overflow}};
    pair.parts[0] = "sinh: ";
    pair.parts[1] = "cosh: ";
    std::vector<Function> list = {
        {"sqrtl_scalar", extended, unary<mpfr_sqrt>, {}},
        {"fabsl_scalar", extended, unary<mpfr_abs>, {}},
        {"expl_scalar",
         extended,
         unary<mpfr_exp>,
         {{0x1p-66, "2^-66"}, {11356.5234062941439497L, "11356.5"}, {11399.4985314888605581L, "11399.5"}}},
        {"logl_scalar", extended, unary<mpfr_log>, {{1 - 0x1p-9, "1 - 2^-9"}, {1 + 0x1p-9, "1 + 2^-9"}}},
        {"log1pl_scalar", extended, unary<mpfr_log1p>, {{0x1p-66, "2^-66"}, two_minus_9, one}},
        {"sinhl_scalar", extended, unary<mpfr_sinh>, {eighth, {40, "40"}, hyperbolic_overflow}},
        {"coshl_scalar", extended, unary<mpfr_cosh>, {{0x1p-33, "2^-33"}, {40, "40"}, hyperbolic_overflow}},
        {"tanhl_scalar", extended, unary<mpfr_tanh>, {eighth, {32, "32"}}},
        pair,
        {"asinhl_scalar", extended, unary<mpfr_asinh>, {sixteenth, {0x1p36, "2^36"}}},
        {"acoshl_scalar", extended, unary<mpfr_acosh>, {one, {0x1p36, "2^36"}}},
        {"atanhl_scalar", extended, unary<mpfr_atanh>, {sixteenth, one}},
        {"powl_scalar", extended, binary<mpfr_pow>, {one}, Pairs::power},
        {"reduce_pi04l", extended, reduced_argument, {quarter_pi, two_63}},
        {"sinl_scalar", extended, unary<mpfr_sin>, {quarter_pi, two_63}},
        {"cosl_scalar", extended, unary<mpfr_cos>, {quarter_pi, two_63}},
        {"tanl_scalar", extended, unary<mpfr_tan>, {quarter_pi, two_63}},
        {"sincosl_scalar", extended, sine_and_cosine, {quarter_pi, two_63}},
        {"sindl_scalar", extended, unary<sine_of_degrees>, {half, two_63}},
        {"cosdl_scalar", extended, unary<cosine_of_degrees>, {half, two_63}},
        {"atanl_scalar", extended, unary<mpfr_atan>, {{0x1p-70, "2^-70"}, one}},
        {"atan2l_scalar", extended, binary<mpfr_atan2>, {}, Pairs::ratio},
        {"atan2dl_scalar", extended, binary<angle_in_degrees>, {}, Pairs::ratio},
        {"asinl_scalar", extended, unary<mpfr_asin>, {half, one}},
        {"acosl_scalar", extended, unary<mpfr_acos>, {half, one}},
    };
    for (Function& function : list) {
        const std::string_view name = function.entry;
        function.is_circular = name == "reduce_pi04l" || name == "sinl_scalar" || name == "cosl_scalar" ||
                               name == "tanl_scalar" || name == "sincosl_scalar";
        function.is_in_degrees = name == "sindl_scalar" || name == "cosdl_scalar";
        if (name == "sincosl_scalar") function.parts[0] = "sine: ", function.parts[1] = "cosine: ";
        if (name == "reduce_pi04l") function.parts[0] = "argument: ", function.parts[1] = "octant: ";
    }
    return list;
}

} // namespace

std::vector<Function> scalar_functions()
{
    std::vector<Function> list = {
        {"acos_scalar",
         narrow,
         unary<mpfr_acos>,
         {{0x1.87de2a6aea963p-2, "0.3827"}, {0x1.d906bcf328d46p-1, "0.9239"}, one}},
        {"atan2_scalar", narrow, binary<mpfr_atan2>, {}, Pairs::ratio},
        {"log_scalar", narrow, unary<mpfr_log>, {{1 - 0x1p-8, "1 - 2^-8"}, {1 + 0x1p-8, "1 + 2^-8"}}},
        {"log1p_scalar", narrow, unary<mpfr_log1p>, {{0x1p-66, "2^-66"}, {0x1p-8, "2^-8"}, one}},
        {"sqrt_scalar", narrow, unary<mpfr_sqrt>, {}},
        {"sqrtf_scalar", narrow, unary<mpfr_sqrt>, {}},
        {"fabs_scalar", narrow, unary<mpfr_abs>, {}},
        {"copysign_scalar", narrow, binary<mpfr_copysign>, {}, Pairs::ratio},
        {"copysignf_scalar", narrow, binary<mpfr_copysign>, {}, Pairs::ratio},
    };
    std::ranges::move(extended_functions(), std::back_inserter(list));

    std::vector<Function> pairs = {{"internal_cexp", of_complex, complex<mpc_exp>, {}}};
    for (const auto& [name, evaluate] : std::initializer_list<std::pair<const char*, Evaluate>>{
             {"cexp_scalar", complex<mpc_exp>},
             {"cexpf_scalar", complex<mpc_exp>},
             {"clog_scalar", complex<mpc_log>},
             {"clogf_scalar", complex<mpc_log>},
             {"csqrt_scalar", complex<mpc_sqrt>},
             {"csqrtf_scalar", complex<mpc_sqrt>},
             {"cacos_scalar", complex_arc_cosine},
             {"cacosf_scalar", complex_arc_cosine},
         })
        pairs.push_back({name, of_complex, evaluate, {}});
    for (const char* const name :
         {"cacosh_scalar",  "cacoshf_scalar", "casin_scalar",  "casinf_scalar", "casinh_scalar",
          "casinhf_scalar", "catan_scalar",   "catanf_scalar", "catanh_scalar", "catanhf_scalar",
          "ccos_scalar",    "ccosf_scalar",   "ccosh_scalar",  "ccoshf_scalar", "clog10_scalar",
          "clog10f_scalar", "clog2_scalar",   "clog2f_scalar", "cpow_scalar",   "cpowf_scalar",
          "csin_scalar",    "csinf_scalar",   "csinh_scalar",  "csinhf_scalar", "ctan_scalar",
          "ctanf_scalar",   "ctanh_scalar",   "ctanhf_scalar"})
        pairs.push_back({name, of_complex, first_argument, {}});
    for (Function& function : pairs) {
        function.parts[0] = "real part: ";
        function.parts[1] = "imaginary part: ";
        list.push_back(function);
    }
    return list;
}

} // namespace zelk::accuracy
