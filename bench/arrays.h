// The arguments and results of one run, and a run itself.
#pragma once

#include <cstddef>

namespace zelk::bench {

// Memory for one array. Its padding keeps the addresses of several in a row from being equal modulo 4096,
// which makes loads wait for unrelated stores.
struct alignas(64) Block {
    static constexpr std::size_t bytes = 4096;
    unsigned char storage[bytes];
    unsigned char padding[448];
};

// `bytes` of arguments in x and y, and as many of results.
struct Arrays {
    void* x;
    void* y;
    void* first;
    void* second;
    std::size_t bytes;

    template <class T>
    std::size_t count() const
    {
        return bytes / sizeof(T);
    }
};

// Computes all results. `function` is what is called, or not used where the loop names its function itself.
using Loop = void (*)(const void* function, const Arrays&);

struct Loops {
    Loop throughput = nullptr; // all elements, independent of each other
    Loop latency = nullptr;    // each call after the result of the one before
};

} // namespace zelk::bench
