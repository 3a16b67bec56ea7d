#include "tables/two_over_pi.h"

namespace zelk::tables {

const TwoOverPi two_over_pi = {
#include "tables/two_over_pi.inc"
};

} // namespace zelk::tables
