#include "tables/intdiv.h"

namespace zelk::tables {

const Intdiv intdiv = {
    .iNegBiggest = mask32(0x80000000),
    .iOne = mask32(0x00000001),
    .dbRS = splat64(0x4338000000000000),
};

} // namespace zelk::tables
