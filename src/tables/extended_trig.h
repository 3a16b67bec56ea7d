// Constants of the circular functions of 80-bit numbers.
#pragma once

#include "tables/extended.h"
#include "tables/splat.h"
#include "tables/wide.h"

namespace zelk::tables {

// The 80-bit number nearest to a value, and the one nearest to the rest.
struct HiLoExtended {
    long double hi;
    long double lo;
};

// asin c and cos asin c.
struct ArcSineRow {
    HiLo angle;
    HiLo cos;
};

struct ExtendedTrig {
    // Word i of 2/pi has the weight 2^(-32 (i-2)): three words of zeros, 519 words of 2/pi.
    std::uint32_t two_over_pi[522];
    HiLo sines[257]; // of j pi/512
    // c = (j + 1/2)/256, from j = 32 on.
    ArcSineRow arc_sine[208];

    Wide half_pi;
    double half_pi_head; // 32 significant bits
    Wide half_pi_rest;
    long double quarter_pi;
    HiLoExtended radians_per_degree;
    double degree_head; // of pi/180, 32 significant bits
    Wide degree_rest;
    Wide degree;
    HiLo C180byPi;    // degrees in a radian
    double step_head; // of pi/512, 35 significant bits
    Wide step_rest;
    double steps_per_radian;

    // sin t = t + sine_3 t^3 + ..., cos t = 1 + cosine_2 t^2 + ....
    // A term that is below 2^-17 of the result has a binary64 coefficient.
    Wide sine_3;
    double sine_5;
    double sine_7;
    double sine_9;
    double sine_11;
    double sine_13;
    double sine_15;
    double cosine_2;
    double cosine_4;
    double cosine_6;
    double cosine_8;
    double cosine_10;
};
ZELK_TABLE ExtendedTrig extended_trig;

} // namespace zelk::tables
