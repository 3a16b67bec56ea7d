/* Roots and error functions. */
#ifndef ZELK_ROOTS_ERF_H
#define ZELK_ROOTS_ERF_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Square roots. */

/* Cube roots. */

/* Error functions. */

ZELK_END_DECLARATIONS

#endif
