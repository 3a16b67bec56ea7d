#include "tables/log_d2.h"

namespace zelk::tables {

const LogD2 log_d2 = {
    .i00100000 = mask32(0x00100000),
    .i001fffff = mask32(0x001FFFFF),
    .dwInf = mask32(0x7FF00000),
    .iBias = mask32(0x000003FF),
    .iExpMask = mask64(0x000FFFFFFFFFFFFF),
    .dbOne = splat64(0x3FF0000000000000),
    .infinity = splat64(0x7FF0000000000000),
    .minus_inf = splat64(0xFFF0000000000000),
};

} // namespace zelk::tables
