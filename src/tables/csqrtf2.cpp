#include "tables/csqrtf2.h"

namespace zelk::tables {

const Csqrtf2 csqrtf2 = {
    .flSignY = int4{0, INT32_MIN, 0, INT32_MIN},
    .flAbsMask = mask32(0x7FFFFFFF),
    .flAdd = uint4{0x00800000, 0x00800000, 0x00800000, 0x00800000},
    .flCmp = mask32(0x01000000),
    .flOne = splat32(0x3F800000),
    .dbAbsMask = mask64(0x7FFFFFFFFFFFFFFF),
    .i64Half = mask64(0x0010000000000000),
    .dbRcpMask = mask64(0x001FFFFFFFFFFFFF),
    .dbHalf = mask64(0x07E0000000000000),
    .dbBias = uint4{0, 0x3FF00000, 0, 0x3FF00000},
    .dbBias4Inv = uint4{0, 0x57F00000, 0, 0x57F00000},
    .dbA1 = splat64(0xBFE000050002FB02),
    .dbA2 = splat64(0x3FD80011800E700D),
    .dbOneHalf = splat64(0x3FE0000000000000),
    .dbOne = splat64(0x3FF0000000000000),
    .Zero = splat64(0),
};

} // namespace zelk::tables
