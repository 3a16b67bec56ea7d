// The scalar routines beside the C library's functions of the same type.
#pragma once

#include <string>
#include <vector>

#include "arrays.h"

namespace zelk::bench {

struct ScalarWorkload {
    std::string routine; // "expl_scalar"
    const void* libm;    // called as the routine is; null: there is none
    Loop throughput;
    bool (*fill)(void* x, void* y, std::size_t bytes);
    std::size_t size; // of an element in bytes
};

const std::vector<ScalarWorkload>& scalar_workloads();

} // namespace zelk::bench
