#include "tables/atanf4.h"

namespace zelk::tables {

const Atanf4 atanf4 = {
    .s_dwAbsMask = mask32(0x7FFFFFFF),
    .s_dwSignMask = mask32(0x80000000),
    .s_dwMaxNormal = mask32(0x7F7FFFFF),
    .s_dwMinBound = mask32(0x00800000),
    .s_fOne = splat32(0x3F800000),
    .s_fNegOne = splat32(0xBF800000),
    .s_fPi2 = splat32(0x3FC90FDB),
    .s_fPi = splat32(0x40490FDB),
    .s_fA0 = splat32(0x3F800000),
    .s_fA1 = splat32(0xBEAAAA53),
    .s_fA2 = splat32(0x3E4CB974),
    .s_fA3 = splat32(0xBE117200),
    .s_fA4 = splat32(0x3DD9ED24),
    .s_fA5 = splat32(0xBD99B01E),
    .s_fA6 = splat32(0x3D2EDD4E),
    .s_fA7 = splat32(0xBC83A25C),
    .s_fA8 = splat32(0x3B3AC537),
};

const Atan2Ss atan2_ss = {
    .b = {binary64(0x3FEFFFFFF7D2397A), binary64(0xBFD5554A6DBB1614), binary64(0x3FC9972E7842A425),
          binary64(0xBFC22E400E7F97E8), binary64(0x3FBB3DA47DC4BC7A), binary64(0xBFB33603B7747C3C),
          binary64(0x3FA5DBA9B6416141), binary64(0xBF90744B79FA4C68), binary64(0x3F6758A6ECE26A15)},
    .pi_2 = binary64(0x3FF921FB54442D18),
    .m_or_p = {-1.0, 1.0},
    .pi_or_zero = {binary64(0x400921FB54442D18), 0.0},
    .angles = {0.0f, 0x1.921fb6p-1f, 0x1.921fb6p0f, 0x1.2d97c8p1f, 0x1.921fb6p1f},
};

} // namespace zelk::tables
