#include "tables/rounding.h"

namespace zelk::tables {

const Roundingf4 roundingf4 = {
    .s_dwSMask = mask32(0x80000000),
    .s_dw7fffffff = mask32(0x7FFFFFFF),
    .s_dw7f800000 = mask32(0x7F800000),
    .s_dw4affffff = mask32(0x4AFFFFFF),
    .s_dw4b000000 = splat32(0x4B000000),
    .s_dw2p23 = splat32(0x4B000000),
    .s_dw80000000 = splat32(0x80000000),
    .s_dw3f800000 = splat32(0x3F800000),
    .s_dwbf800000 = splat32(0xBF800000),
    .s_dw3f000000 = splat32(0x3F000000),
    .s_dw3effffff = mask32(0x3EFFFFFF),
};

const Rounding2 rounding2 = {
    .s_dwSMask = mask64(0x8000000000000000),
    .s_dwAbsMask = mask64(0x7FFFFFFFFFFFFFFF),
    .s_dwExpMask = mask64(0x7FF0000000000000),
    .s_dwEMaskHigh = mask32(0x7FF00000),
    .s_dw2p51_high = mask32(0x43200000),
    .s_dw2p52 = splat64(0x4330000000000000),
    .s_dwHigh = mask32(0xBCCF0000),
    .s_dwDiff = mask32(0xFCAF0000),
    .s_dwHalf = splat64(0x3FE0000000000000),
    .s_dwOne = splat64(0x3FF0000000000000),
};

const Ceil2 ceil2 = {
    .s_dwOne = splat64(0xBFF0000000000000),
};

const std::uint64_t __zelk_g_dwMask[54] = {
#include "tables/rounding_masks.inc"
};

} // namespace zelk::tables
