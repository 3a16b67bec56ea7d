/* Exponentials, logarithms, power. */
#ifndef ZELK_EXPLOG_H
#define ZELK_EXPLOG_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Single precision exponentials. */

/* Single precision logarithms. */

/* Power. */

/* Double precision exponentials. */

/* Double precision logarithms. */

ZELK_END_DECLARATIONS

#endif
