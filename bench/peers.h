// Other libraries' functions of one 128-bit vector, as far as they are installed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vector_loops.h"

namespace zelk::bench {

struct Peer {
    std::string name; // "sleef u10 sse4"
    const void* function;
    Convention convention;
};

// All that compute `function` ("sin") on such lanes.
std::vector<Peer> find_peers(std::string_view function, Lanes lanes);

} // namespace zelk::bench
