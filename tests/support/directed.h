// Errors in any rounding mode, against the exact value.
#pragma once

#include <algorithm>

#include "oracle.h"

namespace zelk::test {

inline Worst worst_error_rounded(const void* kernel, std::span<const double> xs, const Unary& exact,
                                 Rounding rounding)
{
    Worst worst;
    Exact x;
    Exact value;
    for (std::size_t i = 0; i < xs.size(); i += 2) {
        const double lanes[] = {xs[i], xs[std::min(i + 1, xs.size() - 1)]};
        const Result result = call(kernel, doubles(lanes[0], lanes[1]), {}, {}, nullptr, rounding);
        for (std::size_t lane = 0; lane < 2; ++lane) {
            mpfr_set_d(x.value, lanes[lane], MPFR_RNDN);
            exact(value.value, x.value);
            const double error = ulp_error(result.first.d[lane], value.value);
            if (error > worst.ulp) worst = {error, lanes[lane], 0, result.first.d[lane]};
        }
    }
    return worst;
}

// expect_error_within in each directed mode; towards zero shares the bound of down.
inline void expect_directed_errors_within(double bound_down, double bound_up, const Kernel& kernel,
                                          std::span<const double> xs, const Unary& exact,
                                          const std::string& path)
{
    expect_error_within(bound_down, worst_error_rounded(kernel.address, xs, exact, Rounding::down),
                        kernel.symbol, path + ", rounding down");
    expect_error_within(bound_up, worst_error_rounded(kernel.address, xs, exact, Rounding::up), kernel.symbol,
                        path + ", rounding up");
    expect_error_within(bound_down, worst_error_rounded(kernel.address, xs, exact, Rounding::zero),
                        kernel.symbol, path + ", rounding towards zero");
}

} // namespace zelk::test
