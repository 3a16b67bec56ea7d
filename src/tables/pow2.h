// Constants and tables of the double precision power.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

// A value as the sum of two binary64 patterns.
struct alignas(16) Pow2Pair {
    std::uint64_t hi;
    std::uint64_t lo;
};

struct Pow2 {
    long2 fraction_mask;    // the fraction
    long2 magnitude_mask;   // clears the sign of a number
    long2 infinity;         // pattern of infinity
    long2 default_nan;      // what an invalid operation gives
    int4 index_mask;        // the top 11 bits of the fraction, in the high word
    int4 rounding_bit;      // the last of them
    int4 exponent_pivot;    // high word of 0.75 - 2^-12: a number's distance from it gives the exponent e
    int4 abs_mask;          // clears the sign of a high word
    int4 smallest_normal;   // high word of the smallest normal number
    int4 largest_finite;    // high word of the largest finite numbers
    int4 largest_exponents; // the fields of H and y may add up to this: the product is below 2^13
    int4 smallest_k;        // 1 - 964 * 128
    int4 largest_k;         // 1023 * 128 - 1
    long2 high_word_mask;   // the high word
    double2 converter;      // 1.5 * 2^20: one step of its high word is 1
    double2 one;            // 1
    double2 minus_c_0;      // -1/ln2, cut off to 23 significant bits
    long2 split_mask;       // keeps 26 significant bits
    double2 L7; // log2(1 + r/c_0) - r = L7 r + L6 r^2 + L5 r^3 + L4 r^4 + L3 r^5 + L2 r^6 + L1 r^7
    double2 L6;
    double2 L5;
    double2 L4;
    double2 L3;
    double2 L2;
    double2 L1;
    double2 shifter;      // 1.5 * 2^45: what is added to it is rounded to a multiple k/128
    long2 exponent_field; // the exponent field
    double2 E1;           // 2^t - 1 = E1 t + E2 t^2 + E3 t^3 + E4 t^4 + E5 t^5
    double2 E2;
    double2 E3;
    double2 E4;
    double2 E5;
    double2 two_52;                 // 2^52
    double2 two_53;                 // 2^53
    double2 fifty_two;              // 52
    std::uint64_t reciprocal[1025]; // c_i, about 1/(ln2 (1 + i/1024)), 23 significant bits
    Pow2Pair log[1025];             // log2(c_0/c_i), less 1 for i >= 512
    Pow2Pair exp[128];              // 2^(j/128)
};
ZELK_TABLE Pow2 pow2;

} // namespace zelk::tables
