#include "tables/atan2.h"

namespace zelk::tables {

const Atan2 atan2 = {
    .iSignMask = mask64(0x8000000000000000),
    .iAbsMask = mask64(0x7FFFFFFFFFFFFFFF),
    .iMinWorkNum = mask64(0x0000000000000000),
    .iMaxWorkNum = mask64(0x7FF0000000000000),
    .dbOne = splat64(0x3FF0000000000000),
    .dbMinusOne = splat64(0xBFF0000000000000),
    .dbPio2hi = splat64(0x3FF921FB54442D18),
    .dbPi = splat64(0x400921FB54442D18),
    .dbA00 = splat64(0x3FF0000000000000),
    .dbA01 = splat64(0xBFD55555555553C5),
    .dbA02 = splat64(0x3FC999999997EE34),
    .dbA03 = splat64(0xBFC2492491EE55C7),
    .dbA04 = splat64(0x3FBC71C707F7D5B5),
    .dbA05 = splat64(0xBFB745D009BADA94),
    .dbA06 = splat64(0x3FB3B12A49295651),
    .dbA07 = splat64(0xBFB11084009435E0),
    .dbA08 = splat64(0x3FAE1749BD612DCF),
    .dbA09 = splat64(0xBFAAD261EAA09954),
    .dbA10 = splat64(0x3FA7EC0FBC50683B),
    .dbA11 = splat64(0xBFA4EFA2E563C1BC),
    .dbA12 = splat64(0x3FA169980CB6AD4F),
    .dbA13 = splat64(0xBF9A5E83B081F69C),
    .dbA14 = splat64(0x3F914F4C661116A5),
    .dbA15 = splat64(0xBF82B2EC618E4BAD),
    .dbA16 = splat64(0x3F6F5A1DAE82AFB3),
    .dbA17 = splat64(0xBF52E67C93954C23),
    .dbA18 = splat64(0x3F2CED0A36665209),
    .dbA19 = splat64(0xBEF4FDB537ABC7A3),
};

const Atan2Angles atan2_angles = {
    .angles = {0.0, 0x1.921fb54442d18p-1, 0x1.921fb54442d18p0, 0x1.2d97c7f3321d2p1, 0x1.921fb54442d18p1},
};

} // namespace zelk::tables
