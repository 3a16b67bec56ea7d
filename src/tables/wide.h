// Constants of 64 significant bits for the x87 unit, kept as the sum of two binary64.
//
// The processor's load of an 80-bit number lets no later call begin until the x87 operations before it are
// done: one in a function of 20 operations makes it three times as slow. Loads of binary64 do not.
#pragma once

namespace zelk::tables {

struct Wide {
    double hi = 0;
    double lo = 0;

    constexpr Wide() = default;
    consteval Wide(long double x) : hi(static_cast<double>(x)), lo(static_cast<double>(x - hi)) {}

    // The sum is exact. The compiler would store that of constants that it can see.
    [[gnu::always_inline]] operator long double() const
    {
        if (!__builtin_constant_p(lo)) return static_cast<long double>(hi) + lo;
        if (lo == 0) return hi;
        const Wide* hidden = this;
        asm("" : "+r"(hidden));
        return static_cast<long double>(hidden->hi) + hidden->lo;
    }
};

} // namespace zelk::tables
