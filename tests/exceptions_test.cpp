// The routines that raise exceptions on purpose and the classification of binary64 patterns, compiled here as
// a kernel would compile them.
#define ZELK_TIER_LETTER A
#include "dispatch/exceptions.h"

#include "call.h"

#include <gtest/gtest.h>

namespace zelk::test {
namespace {

float4 raise_zerodivide(float4)
{
    return float4{tier_A::_raise_zerodivide()};
}
float4 raise_invalid(float4)
{
    return float4{tier_A::_raise_invalid()};
}
int4 classify(double2 x)
{
    return int4{tier_A::__libm_internal_isnan(x[0]), tier_A::__libm_internal_ispinf(x[0]),
                tier_A::__libm_internal_isninf(x[0]), tier_A::__libm_internal_isnegzero(x[0])};
}

TEST(Exceptions, EachRaisesItsOwnFlagOnly)
{
    for (const Rounding rounding : all_roundings) {
        const Result division =
            call(reinterpret_cast<const void*>(raise_zerodivide), {}, {}, {}, nullptr, rounding);
        EXPECT_EQ(division.first.u[0], 0xFF800000u);
        EXPECT_EQ(flag_names(division.flags), "divide-by-zero");
        const Result invalid =
            call(reinterpret_cast<const void*>(raise_invalid), {}, {}, {}, nullptr, rounding);
        EXPECT_EQ(invalid.first.u[0], 0xFFCFFFFFu);
        EXPECT_EQ(flag_names(invalid.flags), "invalid");
    }
}

TEST(Exceptions, Predicates)
{
    const struct {
        std::uint64_t x;
        std::uint32_t isnan, ispinf, isninf, isnegzero;
    } rows[] = {
        {0x7FF0000000000000, 0, 1, 0, 0}, {0xFFF0000000000000, 0, 0, 1, 0}, {0x7FF0000000000001, 1, 0, 0, 0},
        {0xFFF0000000000001, 1, 0, 0, 0}, {0x7FF8000000000000, 1, 0, 0, 0}, {0xFFF8000000000000, 1, 0, 0, 0},
        {0x7FF0000100000000, 1, 0, 0, 0}, {0x7FFFFFFFFFFFFFFF, 1, 0, 0, 0}, {0xFFFFFFFFFFFFFFFF, 1, 0, 0, 0},
        {0x7FEFFFFFFFFFFFFF, 0, 0, 0, 0}, {0xFFEFFFFFFFFFFFFF, 0, 0, 0, 0}, {0x8000000000000000, 0, 0, 0, 1},
        {0x0000000000000000, 0, 0, 0, 0}, {0x8000000000000001, 0, 0, 0, 0}, {0x3FF0000000000000, 0, 0, 0, 0},
    };
    for (const auto& row : rows) {
        const Result result = call(reinterpret_cast<const void*>(classify), quads(row.x, 0));
        EXPECT_TRUE(same_bits(result.first, words(row.isnan, row.ispinf, row.isninf, row.isnegzero)))
            << hex(quads(row.x, 0)) << " gives " << hex(result.first);
        EXPECT_EQ(flag_names(result.flags), "none") << hex(quads(row.x, 0));
    }
}

} // namespace
} // namespace zelk::test
