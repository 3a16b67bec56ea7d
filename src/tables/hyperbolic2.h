// Constants and table of double precision sinh, cosh and tanh.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Hyperbolic2 {
    Constant<long2> s_dwAbsMsk;   // clears the sign
    Constant<long2> s_dwSignMask; // the sign bit
    Constant<long2> s_dwExpbMask; // the exponent field
    Constant<long2>
        s_dwLastOrdinary; // the last number below 708.375: no lane up to here leaves the exponent range
    Constant<int4> s_dwLastFiniteHigh;  // high word from above which cosh is a stored infinity
    Constant<int4> s_dwLastIndex;       // the last k for which e^-a is in the exponent range
    Constant<int4> s_dwIndexMask;       // k modulo 64
    Constant<long2> s_dwExpbOvfBoundHi; // 708.4018..., tanh = +-1 from here on
    Constant<long2> s_dwPosInf;         // infinity
    Constant<double2> s_dwOne;          // 1
    Constant<double2> s_dwInvLn;        // 64/ln 2
    Constant<double2> s_dwRS;           // 1.5 * 2^52
    Constant<double2> s_dwLnHi;         // ln 2/64, the high part of 33 significant bits
    Constant<double2> s_dwLnLo;         // its low part
    Constant<long2> s_dwBias;           // 64 times the exponent bias less one
    Constant<double2> s_dwA2;           // e^r = 1 + r + A2 r^2 + ... + A5 r^5, |r| <= ln 2/128
    Constant<double2> s_dwA3;
    Constant<double2> s_dwA4;
    Constant<double2> s_dwA5;
    Constant<double2> s_dwExp2Max; // 2^1023
    Constant<double2> s_dwTwo;     // 2
    Constant<ulong2> s_dwExp2[65]; // 2^(j/64) as hi + lo; entry 64 is 1, the partner of entry 0
};
ZELK_TABLE Hyperbolic2 hyperbolic2;

} // namespace zelk::tables
