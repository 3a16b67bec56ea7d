// Constants of the single precision scalar complex exponential, in binary64.
#pragma once

namespace zelk::tables {

struct CexpfScalar {
    double shifter;     // 1.5 * 2^52
    double inv_ln2_128; // 128/ln2
    double ln2_128;     // ln2/128
    double e2;          // e^r = 1 + r + e2 r^2 + e3 r^3 + e4 r^4, |r| <= ln2/256: relative error below 2^-49
    double e3;
    double e4;
    double inv_pi_32; // 32/pi
    double pi_32_1;   // pi/32 in three parts; the first two have 33 significant bits
    double pi_32_2;
    double pi_32_3;
    double s3; // sin r = r + s3 r^3 + s5 r^5 + s7 r^7, |r| <= pi/64: relative error below 2^-53
    double s5;
    double s7;
    double c2; // cos r = 1 + c2 r^2 + c4 r^4 + c6 r^6: error below 2^-49
    double c4;
    double c6;
    struct Angle {
        double sine;
        double cosine;
    };
    double powers[128]; // 2^(j/128)
    Angle angles[64];   // of j pi/32
};
extern const __attribute__((visibility("hidden"))) CexpfScalar static_const_table_cexpf;

} // namespace zelk::tables
