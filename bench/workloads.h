// What each function of the list is measured on: its arguments, and the scalar code that it stands beside.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "entries.h"

namespace zelk::bench {

// The arguments or results of one run. Four blocks fit the first-level cache; the padding keeps their
// addresses from being equal modulo 4096, which makes loads wait for unrelated stores.
struct alignas(64) Block {
    static constexpr std::size_t bytes = 4096;
    unsigned char storage[bytes];
    unsigned char padding[448];

    template <class T>
    static constexpr std::size_t count = bytes / sizeof(T);
    template <class T>
    T* as()
    {
        return reinterpret_cast<T*>(storage);
    }
};

struct Arrays {
    Block x;
    Block y;
    Block first;
    Block second;
};

struct Range {
    double low;
    double high;
};

using Loop = void (*)(Arrays&);

// Scalar code for the same function, once per lane. Null where a scalar library has no such function.
struct Peer {
    Loop throughput = nullptr; // all elements, independent of each other
    Loop latency = nullptr;    // each element after the result of the one before
};

struct Workload {
    Range x;
    Range y; // of two-argument functions
    Peer peer;
};

// A complex number is one element of two lanes.
inline unsigned elements_per_vector(Lanes lanes)
{
    return lanes == Lanes::c2 ? 2 : lane_count(lanes);
}

// By the entry's name in the list. Nothing is a fault of the table.
std::optional<Workload> find_workload(std::string_view entry);

// Fills x and y with uniformly distributed arguments, the same on every call.
void fill(Arrays& arrays, const Workload& workload, Lanes lanes);

} // namespace zelk::bench
