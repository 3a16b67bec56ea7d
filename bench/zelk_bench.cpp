// zelk-bench: the speed of every entry, kernel and scalar routine beside the scalar library, in one run.
//
// usage: zelk-bench [--summary] [--benchmark_OPTION]... [ENTRY]...
//
// --summary prints a compact table; give it --benchmark_repetitions=50
// --benchmark_enable_random_interleaving=true.
#include "scalar_workloads.h"
#include "summary.h"
#include "vector_loops.h"
#include "workloads.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

namespace zelk::bench {

namespace {

Arrays arrays;
constexpr std::size_t vectors = Block::bytes / 16;
bool summary = false;

// How often `run` fits into half a millisecond: long enough for the clock, and short enough that some of many
// repetitions pass without an interruption. Counted here from the fastest of several runs, since the
// benchmark library's own count, taken once, is far too low when an interruption falls into it.
template <class Run>
std::int64_t suitable_iterations(Run run)
{
    using Clock = std::chrono::steady_clock;
    auto fastest = Clock::duration::max();
    for (int i = 0; i < 20; ++i) {
        const auto start = Clock::now();
        run(arrays);
        fastest = std::min(fastest, Clock::now() - start);
    }
    return std::max<std::int64_t>(1, std::chrono::microseconds(500) / std::max(fastest, Clock::duration(1)));
}

// `items` is what one run of the loop counts as: elements for throughput, calls for latency.
template <class Fill, class Run>
void add(const std::string& name, Fill fill_arrays, std::size_t items, Run run)
{
    const auto benchmark = benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        fill_arrays();
        for ([[maybe_unused]] const auto iteration : state) {
            run(arrays);
            benchmark::ClobberMemory();
        }
        state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(items));
    });
    fill_arrays();
    if (summary) benchmark->Iterations(suitable_iterations(run));
}

void add_function(const Entry& entry, const std::string& variant, const void* function,
                  const Workload& workload)
{
    const auto fill_arrays = [=, lanes = entry.lanes] { fill(arrays, workload, lanes); };
    const VectorLoops loops = vector_loops_of(entry);
    add("throughput/" + entry.name + '/' + variant, fill_arrays, vectors * elements_per_vector(entry.lanes),
        [=](Arrays& a) { loops.throughput(function, a); });
    add("latency/" + entry.name + '/' + variant, fill_arrays, vectors,
        [=](Arrays& a) { loops.latency(function, a); });
}

void add_peer(const Entry& entry, const Workload& workload)
{
    if (!workload.peer.throughput) return;
    const auto fill_arrays = [=, lanes = entry.lanes] { fill(arrays, workload, lanes); };
    const std::size_t elements = vectors * elements_per_vector(entry.lanes);
    add("throughput/" + entry.name + "/libm", fill_arrays, elements, workload.peer.throughput);
    add("latency/" + entry.name + "/libm", fill_arrays, elements, workload.peer.latency);
}

// False if the table of workloads lacks the entry.
bool add_entry(const Entry& entry)
{
    const auto workload = find_workload(entry.name);
    if (!workload) {
        std::fprintf(stderr, "zelk-bench: bench/workloads.cpp has no row for %s\n", entry.name.c_str());
        return false;
    }
    add_function(entry, "dispatcher", entry.address, *workload);
    for (const Kernel& kernel : entry.kernels)
        add_function(entry, std::string(1, kernel.tier), kernel.address, *workload);
    add_peer(entry, *workload);
    return true;
}

void add_scalar(const ScalarEntry& scalar)
{
    const auto workload = find_scalar_workload(scalar.name);
    if (!workload) return;
    const std::string prefix = "throughput/" + scalar.name + '/';
    const auto fill_arrays = [=] { workload->fill(arrays, workload->x, workload->y); };
    const auto add_routine = [&](const std::string& variant, const void* routine) {
        add(prefix + variant, fill_arrays, workload->calls,
            [=](Arrays& a) { workload->throughput(routine, a); });
    };
    add_routine(scalar.tiers.empty() ? "routine" : "dispatcher", exported(scalar.name));
    for (const char tier : scalar.tiers)
        add_routine(std::string(1, tier), exported(scalar.name + '.' + tier));
    if (workload->peer) add(prefix + "libm", fill_arrays, workload->calls, workload->peer);
}

} // namespace

} // namespace zelk::bench

int main(int argc, char** argv)
{
    using namespace zelk;
    benchmark::Initialize(&argc, argv);
    std::vector<std::string_view> wanted;
    for (const std::string_view word : std::span(argv, static_cast<std::size_t>(argc)).subspan(1)) {
        if (word == "--summary") {
            bench::summary = true;
        } else if (std::ranges::find(entries(), word, &Entry::name) != entries().end() ||
                   std::ranges::find(scalar_entries(), word, &ScalarEntry::name) != scalar_entries().end()) {
            wanted.push_back(word);
        } else {
            std::fprintf(stderr, "zelk-bench: '%.*s' is no option and no entry of the library\n",
                         static_cast<int>(word.size()), word.data());
            return 2;
        }
    }
    bool complete = true;
    const auto is_wanted = [&](const std::string& name) {
        return wanted.empty() || std::ranges::find(wanted, name) != wanted.end();
    };
    for (const Entry& entry : entries())
        if (is_wanted(entry.name)) complete = bench::add_entry(entry) && complete;
    for (const ScalarEntry& scalar : scalar_entries())
        if (is_wanted(scalar.name)) bench::add_scalar(scalar);
    if (!complete) return 1;

    bench::SummaryReporter reporter;
    const std::size_t count =
        bench::summary ? benchmark::RunSpecifiedBenchmarks(&reporter) : benchmark::RunSpecifiedBenchmarks();
    return count > 0 ? 0 : 1;
}
