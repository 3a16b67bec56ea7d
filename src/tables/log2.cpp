#include "tables/log2.h"

namespace zelk::tables {

const Log2 log2_A = {
    .iHi43Bits = mask64(0x7FFFFFFFFFE00000),
    .dbOne = splat64(0x3FF0000000000000),
    .dbLog2Hi = splat64(0x3FE62E42FEFA3800),
    .dbLog2Lo = splat64(0x3D2EF35793C76730),
    .dbP1 = splat64(0xBFE000000000001C),
    .dbP2 = splat64(0x3FD55555555555A7),
    .dbP3 = splat64(0xBFCFFFFFFF201E13),
    .dbP4 = splat64(0x3FC9999998867A53),
    .dbP5 = splat64(0xBFC555C54DD57D75),
    .dbP6 = splat64(0x3FC24998090DC555),
    .s_db1022xLn2 = splat64(0xC086232BDD7ABCD2),
    .s_db1022xLn2Lo = splat64(0),
};

const Log2 log2_L = {
    .iHi43Bits = mask64(0x7FFFFFFFFFE00000),
    .dbOne = splat64(0x3FF0000000000000),
    .dbLog2Hi = splat64(0x3FE62E42FEFA3800),
    .dbLog2Lo = splat64(0x3D2EF35793C76730),
    .dbP1 = splat64(0xBFE0000000000000),
    .dbP2 = splat64(0x3FD555555554CF27),
    .dbP3 = splat64(0xBFCFFFFFFFFEA55B),
    .dbP4 = splat64(0x3FC999A25B418FA8),
    .dbP5 = splat64(0xBFC5555E17023D13),
    .dbP6 = splat64(0),
    .s_db1022xLn2 = splat64(0xC086232BDD7ABCD2),
    .s_db1022xLn2Lo = splat64(0xBD1EEF3FEC1BE37F),
};

alignas(32) const LogRow log2_BT_Tbl_A[65] = {
#include "tables/log2_rows64.inc"
};

alignas(32) const LogRow log2_BT_Tbl_L[257] = {
#include "tables/log2_rows256.inc"
};

} // namespace zelk::tables
