#include "tables/log_scalar.h"

namespace zelk::tables {

const LogScalar log_scalar = {
    .fraction = mask64(0x000FFFFFFFFFFFFF),
    .upper_half = mask64(0xFFFFFFFFF8000000),
    .one = splat64(0x3FF0000000000000),
#include "tables/log_scalar.inc"
};

const LogScalarRow log_scalar_rows[256] = {
#include "tables/log_scalar_rows.inc"
};

} // namespace zelk::tables
