/* libzelk: short-vector elementary functions for x86. One call computes one function on every lane of a
 * 128-bit vector. Results follow IEEE 754 in the caller's rounding mode; error figures are for round to
 * nearest, in units in the last place of the exact result. "Raises" speaks of invalid, divide-by-zero and
 * overflow; inexact and underflow come as the arithmetic gives them. */
#ifndef ZELK_ZELK_H
#define ZELK_ZELK_H

#include "zelk/entries.h"
#include "zelk/explog.h"
#include "zelk/extended.h"
#include "zelk/hyperbolic.h"
#include "zelk/invtrig.h"
#include "zelk/roots_erf.h"
#include "zelk/rounding_intdiv.h"
#include "zelk/trig.h"
#include "zelk/two_results.h"
#include "zelk/types.h"

#endif
