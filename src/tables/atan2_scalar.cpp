#include "tables/atan2_scalar.h"

namespace zelk::tables {

const Atan2Scalar atan2_scalar = {
#include "tables/atan2_scalar.inc"
};

} // namespace zelk::tables
