#include "tables/erf2.h"

namespace zelk::tables {

const ErfTable erfTable = {
    .rows =
        {
#include "tables/erf2_rows.inc"
        },
    .sign_mask = mask64(0x8000000000000000),
    .abs_mask = mask64(0x7FFFFFFFFFFFFFFF),
    .infinity = mask32(0x7FF00000),
    .index_mask = mask32(0x7FFC0000),
    .index_base = mask32(0x3FBC0000),
    .index_limit = mask32(0x005C0000),
};

} // namespace zelk::tables
