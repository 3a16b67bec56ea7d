#include "measurement.h"

#include <chrono>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <random>

namespace zelk::bench {

namespace {

using Clock = std::chrono::steady_clock;

double nanoseconds_since(Clock::time_point start)
{
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count();
}

// Long enough for the clock, and short enough that some of many bursts pass without an interruption.
constexpr double burst_nanoseconds = 100e3;

Loop loop_of(const Series& series)
{
    const Loops& loops = series.variant->loops;
    return series.measure == Measure::latency ? loops.latency : loops.throughput;
}

// Time of one run of the loop, the first run, which brings code and data into the caches, not counted.
double burst(const Series& series)
{
    const Loop loop = loop_of(series);
    loop(series.variant->function, series.arrays);
    const auto start = Clock::now();
    for (int i = 0; i < series.runs; ++i)
        loop(series.variant->function, series.arrays);
    return nanoseconds_since(start) / series.runs;
}

void add_sample(Variant& variant, Measure measure, double nanoseconds, std::size_t bytes)
{
    const double units = measure == Measure::latency ? variant.calls_per_byte : variant.elements_per_byte;
    variant.samples[static_cast<std::size_t>(measure)].add(nanoseconds /
                                                           (units * static_cast<double>(bytes)));
}

constexpr std::size_t memory_bytes = std::size_t{128} << 20; // of arguments, and of results
constexpr std::size_t stretch_bytes = std::size_t{1} << 20;
constexpr int stretches_each = 12;

} // namespace

double Samples::median() const
{
    std::vector<float> sorted = values_;
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::ranges::nth_element(sorted, middle);
    return *middle;
}

double measure_gigahertz()
{
    // Multiplications that wait for each other, three cycles each.
    constexpr int multiplications = 100000;
    double shortest = 1e9;
    for (int attempt = 0; attempt < 50; ++attempt) {
        std::uintptr_t x = 3;
        const auto start = Clock::now();
        for (int i = 0; i < multiplications; i += 10)
            for (int j = 0; j < 10; ++j)
                asm volatile("imul %0, %0" : "+r"(x));
        shortest = std::min(shortest, nanoseconds_since(start));
    }
    return 3 * multiplications / shortest;
}

void measure_interleaved(std::vector<Series>& series, double seconds)
{
    // Counted from the fastest of several runs: a single one may be interrupted.
    for (Series& one : series) {
        if (seconds == 0) break;
        double fastest = burst(one);
        for (int i = 0; i < 5; ++i)
            fastest = std::min(fastest, burst(one));
        one.runs = std::max(1, static_cast<int>(burst_nanoseconds / fastest));
    }
    std::vector<std::size_t> order(series.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::mt19937 generator(1);
    const auto start = Clock::now();
    do {
        std::ranges::shuffle(order, generator);
        for (const std::size_t i : order)
            add_sample(*series[i].variant, series[i].measure, burst(series[i]), series[i].arrays.bytes);
    } while (nanoseconds_since(start) < seconds * 1e9);
}

void measure_in_memory(const std::vector<Variant*>& variants, const void* tile_x, const void* tile_y)
{
    static std::vector<unsigned char> memory[4];
    for (auto& array : memory)
        array.resize(memory_bytes);
    for (std::size_t at = 0; at < memory_bytes; at += Block::bytes) {
        std::memcpy(&memory[0][at], tile_x, Block::bytes);
        std::memcpy(&memory[1][at], tile_y, Block::bytes);
    }
    std::size_t at = 0;
    for (int turn = 0; turn < stretches_each; ++turn)
        for (Variant* variant : variants) {
            const Arrays arrays{&memory[0][at], &memory[1][at], &memory[2][at], &memory[3][at],
                                stretch_bytes};
            const auto start = Clock::now();
            variant->loops.throughput(variant->function, arrays);
            add_sample(*variant, Measure::memory, nanoseconds_since(start), stretch_bytes);
            at = (at + stretch_bytes) % memory_bytes;
        }
}

} // namespace zelk::bench
