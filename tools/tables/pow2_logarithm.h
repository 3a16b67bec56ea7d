// What the tables of the double precision power share.
#pragma once

#include "table_writer.h"

namespace zelk::generate {

// 1/ln2, cut off to 23 significant bits.
inline Real c_0()
{
    Real ln2;
    mpfr_const_log2(ln2.get(), MPFR_RNDN);
    return (Real(1.0) / ln2).leading(23);
}

// c_i = c_0/(1 + i/1024), rounded to nearest with 23 significant bits.
inline Real c(int i)
{
    Real quotient = c_0() / Real(1.0 + i / 1024.0);
    mpfr_prec_round(quotient.get(), 23, MPFR_RNDN);
    mpfr_prec_round(quotient.get(), working_precision, MPFR_RNDN);
    return quotient;
}

} // namespace zelk::generate
