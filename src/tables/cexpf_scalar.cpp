#include "tables/cexpf_scalar.h"

namespace zelk::tables {

const CexpfScalar static_const_table_cexpf = {
    .shifter = 0x1.8p52,
    .inv_ln2_128 = 0x1.71547652b82fep7,
    .ln2_128 = 0x1.62e42fefa39efp-8,
    .e2 = 0x1p-1,
    .e3 = 0x1.5555555555555p-3, // 1/6
    .e4 = 0x1.5555555555555p-5, // 1/24
    .inv_pi_32 = 0x1.45f306dc9c883p3,
    .pi_32_1 = 0x1.921fb544p-4,
    .pi_32_2 = 0x1.0b4611a6p-38,
    .pi_32_3 = 0x1.3198a2e037073p-73,
    .s3 = -0x1.5555555555555p-3,  // -1/6
    .s5 = 0x1.1111111111111p-7,   // 1/120
    .s7 = -0x1.a01a01a01a01ap-13, // -1/5040
    .c2 = -0x1p-1,
    .c4 = 0x1.5555555555555p-5,   // 1/24
    .c6 = -0x1.6c16c16c16c17p-10, // -1/720
    .powers =
        {
#include "tables/exp22_powers.inc"
        },
    .angles =
        {
#include "tables/cexpf_scalar_angles.inc"
        },
};

} // namespace zelk::tables
