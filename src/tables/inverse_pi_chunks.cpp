#include "tables/inverse_pi_chunks.h"

namespace zelk::tables {

const InversePiChunks inverse_pi_chunks_512 = {
#include "tables/inverse_pi_chunks_512.inc"
};

} // namespace zelk::tables
