#include "tables/acos_scalar.h"

namespace zelk::tables {

const AcosScalar acos_scalar = {
#include "tables/acos_scalar.inc"
    .__ones = {1.0L, -1.0L},
    .__small_value_64 = 0x1p-1000L,
};

} // namespace zelk::tables
