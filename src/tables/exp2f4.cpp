#include "tables/exp2f4.h"

namespace zelk::tables {

const Exp2f4 exp2f4 = {
    .flRS = splat32(0x48400000),
    .flA1 = splat32(0x4038AA68),
    .flA0 = splat32(0x40853526),
    .flAbsMask = mask32(0x7FFFFFFF),
    .flExpMask = mask32(0x7F800000),
    .flJMask = mask32(0x0000003F),
    .flBias = mask32(0x00001FC0),
    .flScaleMask = mask32(0x00003FC0),
    .flMaxBound = mask32(0x42F70000),
    .s_fExp2Tbl =
        {
#include "tables/exp2f4.inc"
        },
    .flPosInf = mask32(0x7F800000),
    .flBelow128 = mask32(0x42FFFFFF),
    .flBelow150 = mask32(0x4315FFFF),
    .flOne = mask32(0x3F800000),
    .flShift = mask32(0x41C00000),
    .flShiftUp = mask32(0x4B800000),
    .flShiftDown = mask32(0x33800000),
};

} // namespace zelk::tables
