// What atan2 and atan22 share: the polynomial.
#pragma once

#include "lanes/lanes.h"
#include "tables/atan2.h"

namespace zelk::ZELK_TIER {

// arctan q, |q| <= 1: four interleaved chains in q^8.
ZELK_INLINE double2 arctangent(double2 q, const tables::Atan2& k)
{
    const double2 z = q * q;
    const double2 z2 = z * z;
    const double2 Z4 = z2 * z2;
    const double2 c3 = (((k.dbA19 * Z4 + k.dbA15) * Z4 + k.dbA11) * Z4 + k.dbA07) * Z4 + k.dbA03;
    const double2 c2 = (((k.dbA18 * Z4 + k.dbA14) * Z4 + k.dbA10) * Z4 + k.dbA06) * Z4 + k.dbA02;
    const double2 c1 = (((k.dbA17 * Z4 + k.dbA13) * Z4 + k.dbA09) * Z4 + k.dbA05) * Z4 + k.dbA01;
    const double2 c0 = (((k.dbA16 * Z4 + k.dbA12) * Z4 + k.dbA08) * Z4 + k.dbA04) * Z4 + k.dbA00;
    return q * ((c1 * z + c0) + ((c3 * z2) * z + c2 * z2));
}

} // namespace zelk::ZELK_TIER
