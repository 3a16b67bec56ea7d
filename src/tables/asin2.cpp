#include "tables/asin2.h"

namespace zelk::tables {

static constexpr Asin2 asin2_of_tier(std::uint64_t A03, std::uint64_t A06)
{
    return {
        .iSignMask = mask64(0x8000000000000000),
        .iAbsMask = mask64(0x7FFFFFFFFFFFFFFF),
        .iBelowHalf = mask32(0x3FDFFFFF),
        .iOtherFactor = mask64(0xFFF0000000000000),
        .dbOne = splat64(0x3FF0000000000000),
        .dbOneHalf = splat64(0x3FE0000000000000),
        .dbPio2hi = splat64(0x3FF921FB54442D18),
        .dbA00 = splat64(0x3FC5555555555579),
        .dbA01 = splat64(0x3FB333333332DC42),
        .dbA02 = splat64(0x3FA6DB6DB724FE19),
        .dbA03 = splat64(A03),
        .dbA04 = splat64(0x3F96E8BE19F6199D),
        .dbA05 = splat64(0x3F91C49BD43E63F7),
        .dbA06 = splat64(A06),
        .dbA07 = splat64(0x3F8755BDEFC292C9),
        .dbA08 = splat64(0x3F8622CB270118B0),
        .dbA09 = splat64(0x3F6D768B20A865AC),
        .dbA10 = splat64(0x3F96825C16316F03),
        .dbA11 = splat64(0xBF95E9019191BE85),
        .dbA12 = splat64(0x3FA0D60D1986AEC6),
    };
}

constinit const Asin2 asin2_A = asin2_of_tier(0x3F9F1C71A7CEDD43, 0x3F8CA247EB6664E5);
constinit const Asin2 asin2_L = asin2_of_tier(0x3F9F1C71A7CEDD44, 0x3F8CA247EB6664E6);

} // namespace zelk::tables
