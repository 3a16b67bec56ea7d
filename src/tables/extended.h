// The exported tables, which the 80-bit functions read and callers may use too. A value of two or more
// binary64 is their sum, rounded to the nearest at each step.
#pragma once

namespace zelk::tables {

#define ZELK_EXPORTED_TABLE                                                                                  \
    extern "C" const __attribute__((visibility("default"))) __attribute__((aligned(16)))

// A value as the sum of two binary64.
struct HiLo {
    double hi;
    double lo;
};
struct LoHi {
    double lo;
    double hi;
};
struct SinCos {
    HiLo sin;
    HiLo cos;
};

ZELK_EXPORTED_TABLE float _rop_rcp_table_256[256]; // r_j: 1/(1 + (j + 0.5)/256) to a multiple of 2^-11
ZELK_EXPORTED_TABLE double _rop_double_rcp_table_256[256]; // r_j
ZELK_EXPORTED_TABLE LoHi _rop_log_table_256[256];          // -ln r_j; hi has 21 significant bits
ZELK_EXPORTED_TABLE HiLo _rop_logl_table_256[256];         // -ln r_j
ZELK_EXPORTED_TABLE HiLo _rop_expl_table_256[257];         // 2^((j - 128)/256)
// The angle of the j-th of 513 points that step by 1/128 along the sides x = 1, y = 1, x = -1 of the square,
// from (1, 0) to (-1, 0).
ZELK_EXPORTED_TABLE HiLo _rop_atanl_table_128[513];    // in radians
ZELK_EXPORTED_TABLE HiLo _rop_atandl_table_128[513];   // in degrees
ZELK_EXPORTED_TABLE SinCos _rop_sindl_cosdl_table[90]; // of j degrees

} // namespace zelk::tables
