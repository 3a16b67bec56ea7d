// zelk-compare: every dispatcher beside the scalar library in one run, without the benchmark library, which
// 32-bit systems seldom have.
//
// usage: zelk-compare [REPETITIONS] [ENTRY]...
//
// Prints nanoseconds per element, the smallest of all repetitions, in which dispatcher and library take
// turns.
#include "brava.h"
#include "columns.h"
#include "vector_loops.h"
#include "workloads.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace zelk::bench {

namespace {

Arrays arrays;

template <class Run>
double nanoseconds(Run run)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    run();
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count();
}

std::string decimal(double x)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", x);
    return text;
}

void compare(const Entry& entry, int repetitions, std::vector<Column>& table)
{
    const auto workload = find_workload(entry.name);
    if (!workload || !workload->peer.throughput) return;
    fill(arrays, *workload, entry.lanes);
    const VectorLoops loops = vector_loops_of(entry);
    double dispatcher = 1e300;
    double library = 1e300;
    for (int i = 0; i < repetitions; ++i) {
        dispatcher = std::min(dispatcher, nanoseconds([&] { loops.throughput(entry.address, arrays); }));
        library = std::min(library, nanoseconds([&] { workload->peer.throughput(arrays); }));
    }
    const double elements = Block::bytes / 16 * elements_per_vector(entry.lanes);
    const std::string cells[] = {
        entry.name, std::string(1, selected_tier(entry.tiers, __brava_cpu_indicator)),
        decimal(dispatcher / elements), decimal(library / elements), decimal(library / dispatcher)};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i].cells.push_back(cells[i]);
}

} // namespace

} // namespace zelk::bench

int main(int argc, char** argv)
{
    using namespace zelk;
    const int repetitions = argc > 1 ? std::atoi(argv[1]) : 50;
    if (repetitions < 1) {
        std::fputs("usage: zelk-compare [REPETITIONS] [ENTRY]...\n", stderr);
        return 2;
    }
    std::vector<Column> table = {
        {"entry", {}}, {"tier", {}}, {"ns", {}}, {"libm ns", {}}, {"times as fast", {}}};
    for (const Entry& candidate : entries()) {
        const auto named = [&](std::string_view name) { return name == candidate.name; };
        if (argc <= 2 || std::any_of(argv + 2, argv + argc, named))
            bench::compare(candidate, repetitions, table);
    }
    print(table);
    return 0;
}
