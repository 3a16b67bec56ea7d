#include "tables/extended_trig.h"

namespace zelk::tables {

// clang-format off
const ExtendedTrig extended_trig = {
    .two_over_pi = {
#include "tables/extended_trig_two_over_pi.inc"
    },
    .sines = {
#include "tables/extended_trig_sines.inc"
    },
    .arc_sine = {
#include "tables/extended_trig_arc_sine.inc"
    },
#include "tables/extended_trig_constants.inc"
};
// clang-format on

} // namespace zelk::tables
