#include "tables/erff4.h"

namespace zelk::tables {

const SerfTable serfTable = {
    .sign_mask = mask32(0x80000000),
    .abs_mask = mask32(0x7FFFFFFF),
    .infinity = mask32(0x7F800000),
    .index_base = mask32(0x3CF80000),
    .index_limit = mask32(0x00710000),
    .rows =
        {
#include "tables/erff4_rows.inc"
        },
};

} // namespace zelk::tables
