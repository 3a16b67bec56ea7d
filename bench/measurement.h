// What is measured, and how.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "arrays.h"
#include "workloads.h"

namespace zelk::bench {

enum class Measure { ordinary, wide, large, one_special, all_special, memory, latency };
inline constexpr std::size_t measure_count = 7;
inline constexpr const char* measure_names[measure_count] = {"ordinary",    "wide",   "large",  "one_special",
                                                             "all_special", "memory", "latency"};

// Nanoseconds per element, or per call for latency.
class Samples {
public:
    void add(double nanoseconds) { values_.push_back(static_cast<float>(nanoseconds)); }
    bool empty() const { return values_.empty(); }
    double smallest() const { return *std::ranges::min_element(values_); }
    double median() const;

private:
    std::vector<float> values_;
};

// One line of the result: a function in one of its forms, or a peer.
struct Variant {
    std::string entry;
    std::string name;
    const void* function = nullptr;
    Loops loops;
    double elements_per_byte = 0;
    double calls_per_byte = 0; // in the latency loop
    double error = -1;         // in ulp, on ordinary arguments; negative: not measured
    Samples samples[measure_count] = {};
};

// One of a variant's measures on arrays in the first-level cache.
struct Series {
    Variant* variant;
    Measure measure;
    Arrays arrays;
    int runs = 1; // that make a burst
};

// Bursts of all series in random order, again and again until the time is over.
void measure_interleaved(std::vector<Series>& series, double seconds);

// Throughput on arrays far beyond the last cache: the variants take turns on consecutive stretches of it,
// whose arguments are `tile`, one block of x and of y, repeated.
void measure_in_memory(const std::vector<Variant*>& variants, const void* tile_x, const void* tile_y);

// The processor's clock.
double measure_gigahertz();

} // namespace zelk::bench
