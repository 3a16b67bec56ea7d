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

} // namespace zelk::tables
