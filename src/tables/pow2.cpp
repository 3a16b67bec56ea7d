#include "tables/pow2.h"

namespace zelk::tables {

const Pow2 pow2 = {
    .fraction_mask = mask64(0x000FFFFFFFFFFFFF),
    .magnitude_mask = mask64(0x7FFFFFFFFFFFFFFF),
    .infinity = mask64(0x7FF0000000000000),
    .default_nan = mask64(0xFFF8000000000000),
    .index_mask = mask32(0x000FFE00),
    .rounding_bit = mask32(0x00000200),
    .exponent_pivot = mask32(0x3FE7FE00),
    .abs_mask = mask32(0x7FFFFFFF),
    .smallest_normal = mask32(0x00100000),
    .largest_finite = mask32(0x7FEFFFFF),
    .largest_exponents = mask32(0x809),
    .smallest_k = mask32(static_cast<std::uint32_t>(-123391)),
    .largest_k = mask32(130943),
    .high_word_mask = mask64(0xFFFFFFFF00000000),
    .converter = splat64(0x4138000000000000),
    .one = splat64(0x3FF0000000000000),
    .minus_c_0 = splat64(0xBFF7154740000000),
    .split_mask = mask64(0xFFFFFFFFF8000000),
    .L7 = splat64(0x3E79C3A6966457EE),
    .L6 = splat64(0xBFD62E4346694107),
    .L5 = splat64(0x3FC47FD462B3B816),
    .L4 = splat64(0xBFB550472A8BB463),
    .L3 = splat64(0x3FA7A334DDFC9F86),
    .L2 = splat64(0xBF9B4EA0E9419F52),
    .L1 = splat64(0x3F903950CF599C56),
    .shifter = splat64(0x42C8000000000000),
    .exponent_field = mask64(0xFFF0000000000000),
    .E1 = splat64(0x3FE62E42FEFA39EF),
    .E2 = splat64(0x3FCEBFBDFF82C58E),
    .E3 = splat64(0x3FAC6B08D704A0BF),
    .E4 = splat64(0x3F83B2AB6FBA4E77),
    .E5 = splat64(0x3F55D87FE78A6731),
    .two_52 = splat64(0x4330000000000000),
    .two_53 = splat64(0x4340000000000000),
    .fifty_two = splat64(0x404A000000000000),
    .reciprocal =
        {
#include "tables/pow2_reciprocal.inc"
        },
    .log =
        {
#include "tables/pow2_log.inc"
        },
    .exp =
        {
#include "tables/pow2_exp.inc"
        },
};

} // namespace zelk::tables
