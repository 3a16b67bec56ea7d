/* Rounding to integral values, integer division. */
#ifndef ZELK_ROUNDING_INTDIV_H
#define ZELK_ROUNDING_INTDIV_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Rounding. */

/* Integer division. */

ZELK_END_DECLARATIONS

#endif
