#include "tables/intdiv.h"

namespace zelk::tables {

const Intdiv intdiv = {
    .iNegBiggest = mask32(0x80000000),
    .iOne = mask32(0x00000001),
    .iLow31Mask = mask32(0x7FFFFFFF),
    .flTwo = splat32(0x40000000),
    .flRS31 = splat32(0x5A800000),
    .dbTwo = splat64(0x4000000000000000),
    .dbC = splat64(0xBFF0000000010000),
    .dbRS = splat64(0x4338000000000000),
};

} // namespace zelk::tables
