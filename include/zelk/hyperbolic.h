/* Hyperbolic functions and their inverses. */
#ifndef ZELK_HYPERBOLIC_H
#define ZELK_HYPERBOLIC_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* sinh, cosh, tanh. */

/* asinh, acosh, atanh. */

ZELK_END_DECLARATIONS

#endif
