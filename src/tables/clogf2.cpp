#include "tables/clogf2.h"

namespace zelk::tables {

const Clogf2 clogf2 = {
    .iAbsMask = mask32(0x7FFFFFFF),
    .s_dwSignMask = mask32(0x80000000),
    .iInfM1 = mask32(0x7F7FFFFF),
    .real_positions = int4{-1, 0, -1, 0},
    .s_fOne = splat32(0x3F800000),
    .dbOne = splat64(0x3FF0000000000000),
    .dbHalf = splat64(0x3FE0000000000000),
    .dbThresh = splat64(0x3F9EB851EB851EB8),
    .DBABSMSK = mask64(0x7FFFFFFFFFFFFFFF),
    .dbL0 = splat64(0x3FEFFFFFF513801B),
    .dbL1 = splat64(0xBFDFFFFFD7F0886A),
    .dbL2 = splat64(0x3FD5584A45EEEF6F),
    .dbL3 = splat64(0xBFD002F5040E29D7),
    .s_fPi = splat32(0x40490FDB),
    .s_fPi2 = splat32(0x3FC90FDB),
    .s_fA0 = splat32(0x3F800000),
    .s_fA1 = splat32(0xBEAAAA52),
    .s_fA2 = splat32(0x3E4CB946),
    .s_fA3 = splat32(0xBE117070),
    .s_fA4 = splat32(0x3DD9DFAF),
    .s_fA5 = splat32(0xBD9990ED),
    .s_fA6 = splat32(0x3D2E8DBC),
    .s_fA7 = splat32(0xBC833940),
    .s_fA8 = splat32(0x3B39E4AE),
    .upper_bits = mask64(0x7FFFFFFFFFE00000),
    .log2_hi = splat64(0x3FE62E42FEFA3800),
    .log2_lo = splat64(0x3D2EF35793C76730),
    .r2 = splat64(0xBFE0000000000000),
    .r3 = splat64(0x3FD555555554CF27),
    .r4 = splat64(0xBFCFFFFFFFFEA55B),
    .r5 = splat64(0x3FC999A25B418FA8),
    .r6 = splat64(0xBFC5555E17023D13),
};

const ClogfScalar clogf_scalar = {
    .taylor = {0x1.p+0, -0x1.p-1, 0x1.5555555555555p-2, -0x1.p-2, 0x1.999999999999ap-3, -0x1.5555555555555p-3,
               0x1.2492492492492p-3, -0x1.p-3, 0x1.c71c71c71c71cp-4},
};

} // namespace zelk::tables
