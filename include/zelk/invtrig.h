/* Inverse trigonometric functions. */
#ifndef ZELK_INVTRIG_H
#define ZELK_INVTRIG_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Arc sine and arc cosine. */

/* Arc tangent. */

ZELK_END_DECLARATIONS

#endif
