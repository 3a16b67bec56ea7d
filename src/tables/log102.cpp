#include "tables/log102.h"

namespace zelk::tables {

const Log102 log102 = {
    .iHi33Bits = mask64(0x7FFFFFFF80000000),
    .dbLog10_2Hi = splat64(0x3FD34413509F7800),
    .dbLog10_2Lo = splat64(0x3D1FEF311F12B358),
    .dbC = splat64(0x3FDBC00000000000),
    .dbP0 = splat64(0x3F5A7A6CBF2E4108),
    .dbP1 = splat64(0xBFF27AF2DC77B135),
    .dbP2 = splat64(0x3FFC6A02DC9635D2),
    .dbP3 = splat64(0xC00893096429813D),
    .dbP4 = splat64(0x4016AB9F7E1899F7),
    .dbP5 = splat64(0xC025C9806A358455),
    .dbP6 = splat64(0x40358914C697CEF9),
    .s_db1022xLg2 = splat64(0xC0733A7146F72A42),
    .s_db1022xLg2Lo = splat64(0x3CE8CF2F9AC032A2),
};

alignas(32) const LogRow log102_BT_Tbl[65] = {
#include "tables/log102_rows.inc"
};

} // namespace zelk::tables
