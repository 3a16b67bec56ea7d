#include "tables/erfcf4.h"

namespace zelk::tables {

const ExpPolyTab expPolyTab = {
    .one = splat64(0x3FF0000000000000),
    .half = splat64(0x3FE0000000000000),
    .sixth = splat64(0x3FC5555555555555),
    .twenty_fourth = splat64(0x3FA5555555555555),
    .ln2_128_inverse = splat64(0x40671547652B82FE),
    .shifter = splat64(0x4338000000000000),
    .ln2_128 = splat64(0x3F762E42FEFA39EF),
    .two = splat64(0x4000000000000000),
    .bias = mask32(0x0001FF80),
    .abs_mask = mask32(0x7FFFFFFF),
    .sign_mask = mask64(0x8000000000000000),
    .range_bound = mask32(0x4120DDFC),
    .index_base = mask32(0x3D780000),
    .rows =
        {
#include "tables/erfcf4_rows.inc"
        },
    .powers =
        {
#include "tables/exp22_powers.inc"
        },
};

} // namespace zelk::tables
