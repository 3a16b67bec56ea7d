#include "tables/inverse_pi_chunks.h"

namespace zelk::tables {

const InversePiChunks inverse_pi_chunks_512 = {
#include "tables/inverse_pi_chunks_512.inc"
};

const GridConstants grid_constants = {
    .first_exponent = mask32(142),
    .leading_40_bits = mask64(0xFFFFFFFFFF000000),
    .shifter = splat64(0x4338000000000000),
    .grid_mask = mask32(63),
    .grid_size = mask32(64),
    .sign = mask64(0x8000000000000000),
    .exponent_field = mask32(0x7F800000),
};

} // namespace zelk::tables
