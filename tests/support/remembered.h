// Exact functions that compute each value once, for arguments that several kernels are measured on.
#pragma once

#include <map>
#include <memory>

#include "oracle.h"

namespace zelk::test {

inline Unary remembered(const Unary& exact)
{
    auto values = std::make_shared<std::map<double, Exact>>();
    return [exact, values](mpfr_ptr result, mpfr_srcptr x) {
        const auto [entry, is_new] = values->try_emplace(mpfr_get_d(x, MPFR_RNDN));
        if (is_new) exact(entry->second.value, x);
        mpfr_set(result, entry->second.value, MPFR_RNDN);
    };
}

inline Binary remembered(const Binary& exact)
{
    auto values = std::make_shared<std::map<std::pair<double, double>, Exact>>();
    return [exact, values](mpfr_ptr result, mpfr_srcptr x, mpfr_srcptr y) {
        const auto [entry, is_new] =
            values->try_emplace({mpfr_get_d(x, MPFR_RNDN), mpfr_get_d(y, MPFR_RNDN)});
        if (is_new) exact(entry->second.value, x, y);
        mpfr_set(result, entry->second.value, MPFR_RNDN);
    };
}

} // namespace zelk::test
