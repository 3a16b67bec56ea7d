#include "tables/powf4.h"

namespace zelk::tables {

const Powf4 powf4 = {
    .exponent_field = mask32(0x7F800000),
    .mantissa_field = mask32(0x007FFFFF),
    .largest_finite = mask32(0x7F7FFFFF),
    .abs_mask = mask32(0x7FFFFFFF),
    .two_24 = mask32(0x4B800000),
    .bias = mask32(127),
    .bias_normalised = mask32(253),
    .sqrt2_addend = mask32(0x004AFB10),
    .sqrt2_carry = mask32(0x00800000),
    .one = splat32(0x3F800000),
    .one_plus = mask64(0x3C08000000000000),
    .two = splat64(0x4000000000000000),
    .P1 = splat64(0x3FE5555548EB27CB),
    .P2 = splat64(0x3FD999B0E1914EDA),
    .P3 = splat64(0x3FD24185C344345D),
    .P4 = splat64(0x3FCE772A3451A0F5),
    .log2_e = splat64(0x3FF71547652B82FE),
    .shifter = splat64(0x4338000000000000),
    .largest_exponent = mask32(0x40862000),
    .exponent_offset = mask64(1010),
    .scale_fraction = mask64(0x00041D33371366F6),
    .a1 = splat64(0x401B6EB4213BDE9F),
    .b1 = splat64(0x402A6A2A50304BBE),
    .a2 = splat64(0x4010BF17348D1E8D),
    .b2 = splat64(0x4030A032A22D3A94),
    .a3 = splat64(0xC002807EBB3FA39C),
    .b3 = splat64(0x403DAD2E293AB434),
};

} // namespace zelk::tables
