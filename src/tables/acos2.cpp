#include "tables/acos2.h"

namespace zelk::tables {

namespace {

struct OfTier {
    std::uint64_t Pio2hi;
    std::uint64_t Pi;
    std::uint64_t A01;
    std::uint64_t A06;
    std::uint64_t A10;
};

constexpr Acos2 acos2_of_tier(const OfTier& tier)
{
    return {
        .iSignMask = mask64(0x8000000000000000),
        .iAbsMask = mask64(0x7FFFFFFFFFFFFFFF),
        .iBelowHalf = mask32(0x3FDFFFFF),
        .iOtherFactor = mask64(0xFFF0000000000000),
        .dbOneHalf = splat64(0x3FE0000000000000),
        .dbOne = splat64(0x3FF0000000000000),
        .dbMinusOne = splat64(0xBFF0000000000000),
        .dbPio2hi = splat64(tier.Pio2hi),
        .dbPi = splat64(tier.Pi),
        .dbA00 = splat64(0x3FC5555555556E3C),
        .dbA01 = splat64(tier.A01),
        .dbA02 = splat64(0x3FA6DB6DD20120F3),
        .dbA03 = splat64(0x3F9F1C697859C3E2),
        .dbA04 = splat64(0x3F96E9769038BE6D),
        .dbA05 = splat64(0x3F91BA7CBC3F3A91),
        .dbA06 = splat64(tier.A06),
        .dbA07 = splat64(0x3F831D56BA773964),
        .dbA08 = splat64(0x3F92D892CC96EFAF),
        .dbA09 = splat64(0xBF8884789EFB5918),
        .dbA10 = splat64(tier.A10),
    };
}

} // namespace

constinit const Acos2 acos2_A = acos2_of_tier({
    .Pio2hi = 0x3FF921FB54442D18,
    .Pi = 0x400921FB54442D18,
    .A01 = 0x3FB33333330711A8,
    .A06 = 0x3F8D59EC6E98BFE2,
    .A10 = 0x3FA03E5B5E516DFB,
});
constinit const Acos2 acos2_L = acos2_of_tier({
    .Pio2hi = 0x3FF921FB54442D19,
    .Pi = 0x400921FB54442D19,
    .A01 = 0x3FB33333330711A7,
    .A06 = 0x3F8D59EC6E98BFE3,
    .A10 = 0x3FA03E5B5E516DFA,
});

} // namespace zelk::tables
