// Vectors that stand in the table modules, and the operations of kernels with them.
#pragma once

#include "lanes/types.h"

namespace zelk::tables {

// An operation with another vector takes the constant from memory, and overwrites a copy of the other vector.
// Left alone, the compiler loads the constant into a register and keeps the other vector, which takes a load
// and a physical register more; these, not the operations, bound how many calls overlap in a loop. Tables of
// kernels that run short of the eight registers hold plain vectors: there the early copies get spilled, and
// it costs more than it saves.
template <class Vector>
struct Constant {
    Vector value;

    [[gnu::always_inline]] operator Vector() const { return value; }
    [[gnu::always_inline]] auto operator[](int lane) const { return value[lane]; }
};

// x in a register of its own. The memory operand only keeps copies for different constants apart.
template <class Vector>
[[gnu::always_inline]] static inline Vector copy_for(const Constant<Vector>& c, Vector x)
{
    asm("" : "+x"(x) : "m"(c.value));
    return x;
}

#define ZELK_OPERATOR(op)                                                                                    \
    template <class Vector>                                                                                  \
    [[gnu::always_inline]] static inline auto operator op(Vector x, const Constant<Vector>& c)               \
    {                                                                                                        \
        return copy_for(c, x) op c.value;                                                                    \
    }
ZELK_OPERATOR(+)
ZELK_OPERATOR(-)
ZELK_OPERATOR(*)
ZELK_OPERATOR(/)
ZELK_OPERATOR(&)
ZELK_OPERATOR(|)
ZELK_OPERATOR(^)
ZELK_OPERATOR(==)
ZELK_OPERATOR(>)
ZELK_OPERATOR(<)
ZELK_OPERATOR(>=)
ZELK_OPERATOR(<=)
#undef ZELK_OPERATOR

// The constant first: as above where the operation commutes, else the constant is what gets overwritten.
#define ZELK_OPERATOR(op, commuted)                                                                          \
    template <class Vector>                                                                                  \
    [[gnu::always_inline]] static inline auto operator op(const Constant<Vector>& c, Vector x)               \
    {                                                                                                        \
        return commuted;                                                                                     \
    }
ZELK_OPERATOR(+, (x + c))
ZELK_OPERATOR(-, c.value - x)
ZELK_OPERATOR(*, (x * c))
ZELK_OPERATOR(/, c.value / x)
ZELK_OPERATOR(&, (x & c))
ZELK_OPERATOR(|, (x | c))
ZELK_OPERATOR(^, (x ^ c))
ZELK_OPERATOR(==, (x == c))
ZELK_OPERATOR(>, c.value > x)
ZELK_OPERATOR(<, c.value < x)
ZELK_OPERATOR(>=, c.value >= x)
ZELK_OPERATOR(<=, c.value <= x)
#undef ZELK_OPERATOR

template <class Vector>
[[gnu::always_inline]] static inline Vector operator~(const Constant<Vector>& c)
{
    return ~c.value;
}

} // namespace zelk::tables
