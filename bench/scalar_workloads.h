// What each scalar routine of the list is measured on, and the scalar library's function beside it.
#pragma once

#include <optional>
#include <string_view>

#include "workloads.h"

namespace zelk::bench {

struct ScalarWorkload {
    std::size_t calls; // of one run
    void (*fill)(Arrays&, Range x, Range y);
    void (*throughput)(const void* routine, Arrays&);
    Loop peer; // null where the scalar library has no such function
    Range x;
    Range y; // of two-argument functions
};

// Nothing for routines that only move bits or return their argument.
std::optional<ScalarWorkload> find_scalar_workload(std::string_view routine);

} // namespace zelk::bench
