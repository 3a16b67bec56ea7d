#include "tables/trig_reduction.h"

namespace zelk::tables {

const TrigReduction trig_reduction = {
    ._PI04_21x5 = {splat64(0x3FE921FA00000000), splat64(0x3EA5444300000000), splat64(0xBD373DCA00000000),
                   splat64(0xBBF3B39A00000000), splat64(0x3A845C06E0E68948)},
    ._PIO2_21x5 = {splat64(0x3FF921FA00000000), splat64(0x3EB5444300000000), splat64(0xBD473DCA00000000),
                   splat64(0xBC03B39A00000000), splat64(0x3A945C06E0E68948)},
    .dbInvPio4 = splat64(0x3FF45F306DC9C883),
    .dbiOne = mask32(1),
    .MSK_LOW_BIT = mask32(0xFFFFFFFE),
    .first_exponent = mask32(148),
    .one_25th = mask32(2622),
    .leading_bits = mask32(8),
    .below_2_30 = mask32(0x4E7FFFFF),
    .from_2_30 = mask32(0x4E800000),
    .largest_finite = mask32(0x7F7FFFFF),
    .one = mask64(1),
    .two_200_exponent = mask64(std::uint64_t{200} << 52),
    .clear_20_bits = mask64(0xFFFFFFFFFFF00000),
    .two_52 = splat64(0x4330000000000000),
    .double_one = splat64(0x3FF0000000000000),
    ._PI02_INV = binary64(0x3FE45F306DC9C883),
    ._PI04_INV = binary64(0x3FF45F306DC9C883),
    ._PI02 = binary64(0x3FF921FB54442D18),
    ._PI04 = binary64(0x3FE921FB54442D18),
    ._TWO_26H = binary64(0x4198000000000000),
    ._zero_none = {0.0, -1.0},
    ._PIO2_25x2 = {binary64(0x3FF921FB40000000), binary64(0x3E74442D18469899)},
    ._PI04_25x2 = {binary64(0x3FE921FB40000000), binary64(0x3E64442D18469899)},
#include "tables/trig_reduction.inc"
};

} // namespace zelk::tables
