// 128/pi for the scalar trigonometric routines on binary32.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

// Chunk k serves biased exponents from 142 + 8k on; multiples of 256 (512) that cannot matter there are left
// out. The upper 40 bits of `packed` are a double, its lower 24 bits are the top of a second one, `low` is
// the rest.
struct InversePiChunk {
    std::uint64_t packed;
    std::uint64_t low;
};
using InversePiChunks = InversePiChunk[15];

ZELK_TABLE InversePiChunks inverse_pi_chunks_512;

// For two numbers at once.
struct GridConstants {
    Constant<int4> first_exponent;   // field of 2^15: 8 exponents to a chunk from there
    Constant<long2> leading_40_bits; // of a chunk's first word: its first part
    Constant<double2> shifter;       // 1.5 * 2^52
    Constant<int4> grid_mask;        // 63
    Constant<int4> grid_size;        // 64
    Constant<long2> sign;            // the sign bit
    Constant<int4> exponent_field;   // of binary32
};
ZELK_TABLE GridConstants grid_constants;

} // namespace zelk::tables
