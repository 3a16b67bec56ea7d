#include "tables/erfc2.h"

namespace zelk::tables {

const ErfcTable erfcTable = {
    .last_high = mask32(0x403B39DC),
    .abs_mask = mask64(0x7FFFFFFFFFFFFFFF),
    .sign_mask = mask64(0x8000000000000000),
    .abs_split_mask = mask64(0x7FFFFFFFF8000000),
    .split_mask = mask64(0xFFFFFFFFF8000000),
    .ln2_128_inverse = splat64(0x40671547652B82FE),
    .shifter = splat64(0x4338000000000000),
    .bias = mask64(0x4990000000000000),
    .exponent_mask = mask64(0xFFF0000000000000),
    .unbias = splat64(0x3650000000000000),
    .ln2_128_hi = splat64(0x3F762E4300000000),
    .ln2_128_lo = splat64(0xBDB05C610CA86C39),
    .one = splat64(0x3FF0000000000000),
    .half = splat64(0x3FE0000000000000),
    .sixth = splat64(0x3FC5555555555555),
    .twenty_fourth = splat64(0x3FA5555555555555),
    .hundred_twentieth = splat64(0x3F81111111111111),
    .index_base = mask32(0x3FCC0000),
    .rows =
        {
#include "tables/erfc2_rows.inc"
        },
    .powers =
        {
#include "tables/pow2_exp.inc"
        },
};

} // namespace zelk::tables
