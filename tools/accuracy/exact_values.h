// Exact values as functions of one kind: what the lists of functions name.
#pragma once

#include <mpc.h>
#include <mpfr.h>

#include "functions.h"

namespace zelk::accuracy {

template <int (*function)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t)>
void unary(mpfr_ptr first, mpfr_ptr, mpfr_srcptr x, mpfr_srcptr)
{
    function(first, x, MPFR_RNDN);
}
template <int (*function)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t)>
void binary(mpfr_ptr first, mpfr_ptr, mpfr_srcptr x, mpfr_srcptr y)
{
    function(first, x, y, MPFR_RNDN);
}
inline void sine_and_cosine(mpfr_ptr first, mpfr_ptr second, mpfr_srcptr x, mpfr_srcptr)
{
    mpfr_sin_cos(first, second, x, MPFR_RNDN);
}
inline void first_argument(mpfr_ptr first, mpfr_ptr second, mpfr_srcptr x, mpfr_srcptr y)
{
    mpfr_set(first, x, MPFR_RNDN);
    mpfr_set(second, y, MPFR_RNDN);
}
struct Complex {
    explicit Complex(mpfr_prec_t precision = precision_of(binary64)) { mpc_init2(value, precision); }
    ~Complex() { mpc_clear(value); }
    Complex(const Complex&) = delete;
    Complex& operator=(const Complex&) = delete;
    mpc_t value;
};
template <int (*function)(mpc_ptr, mpc_srcptr, mpc_rnd_t)>
void complex(mpfr_ptr first, mpfr_ptr second, mpfr_srcptr x, mpfr_srcptr y)
{
    thread_local Complex z;
    if (mpfr_get_prec(first) != mpfr_get_prec(mpc_realref(z.value)))
        mpc_set_prec(z.value, mpfr_get_prec(first)); // which holds the arguments, too
    mpc_set_fr_fr(z.value, x, y, MPC_RNDNN);
    function(z.value, z.value, MPC_RNDNN);
    mpfr_set(first, mpc_realref(z.value), MPFR_RNDN);
    mpfr_set(second, mpc_imagref(z.value), MPFR_RNDN);
}

// By square roots of 1 - z and 1 + z (Kahan): mpc_acos takes a second where one part is tiny.
void complex_arc_cosine(mpfr_ptr first, mpfr_ptr second, mpfr_srcptr x, mpfr_srcptr y);

// The rows of the scalar routines.
std::vector<Function> scalar_functions();

} // namespace zelk::accuracy
