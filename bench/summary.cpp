#include "summary.h"

#include "columns.h"
#include "entries.h"
#include "workloads.h"

#include "brava.h"

#include <chrono>
#include <cstdint>
#include <cstdio>

namespace zelk::bench {

namespace {

std::string text(const char* format, double value)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

// The processor's clock, from multiplications that wait for each other, three cycles each.
double measure_gigahertz()
{
    using Clock = std::chrono::steady_clock;
    constexpr int multiplications = 100000;
    double shortest = 1e9;
    for (int attempt = 0; attempt < 50; ++attempt) {
        std::uint64_t x = 3;
        const auto start = Clock::now();
        for (int i = 0; i < multiplications; i += 10)
            for (int j = 0; j < 10; ++j)
                asm volatile("imulq %0, %0" : "+r"(x));
        shortest = std::min(shortest, std::chrono::duration<double, std::nano>(Clock::now() - start).count());
    }
    return 3 * multiplications / shortest;
}

} // namespace

void SummaryReporter::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
        const double time = 1e9 / run.counters.at("items_per_second");
        const auto [place, is_new] = smallest_.emplace(run.run_name.function_name, time);
        if (!is_new) place->second = std::min(place->second, time);
        repetitions_ = std::max(repetitions_, static_cast<int>(run.repetitions));
    }
}

double SummaryReporter::nanoseconds(const std::string& name) const
{
    const auto place = smallest_.find(name);
    return place == smallest_.end() ? 0 : place->second;
}

void SummaryReporter::Finalize()
{
    const double gigahertz = measure_gigahertz();
    std::printf("Smallest of %d interleaved repetitions; clock %.2f GHz.\n"
                "Throughput: nanoseconds per element, arrays in the first-level cache. Latency: nanoseconds "
                "per call.\n"
                "Over kernel: what the dispatcher adds to a call of the kernel that it selects.\n\n",
                repetitions_, gigahertz);

    std::vector<Column> columns = {{"entry", {}}, {"called", {}}, {"ns/element", {}},
                                   {"libm", {}},  {"ratio", {}},  {"latency", {}},
                                   {"libm", {}},  {"ratio", {}},  {"over kernel", {}}};
    const auto add_rows = [&](const std::string& name, const std::vector<std::string>& tiers, char selected,
                              unsigned elements_per_call) {
        const std::string throughput = "throughput/" + name + '/';
        const std::string latency = "latency/" + name + '/';
        const double peer_throughput = nanoseconds(throughput + "libm");
        const double peer_latency = nanoseconds(latency + "libm");
        std::vector<std::string> variants = {tiers.empty() ? "routine" : "dispatcher"};
        variants.insert(variants.end(), tiers.begin(), tiers.end());
        for (const std::string& variant : variants) {
            const double element = nanoseconds(throughput + variant);
            const double call = nanoseconds(latency + variant);
            if (element == 0) continue;
            std::string over_kernel;
            const double kernel = nanoseconds(throughput + std::string(1, selected));
            if (variant == "dispatcher" && kernel > 0) {
                const double excess = (element - kernel) * elements_per_call;
                over_kernel = text("%.2f ns", excess) + text(", %.1f cycles", excess * gigahertz);
            }
            const auto ratio = [](double peer, double own) {
                return peer > 0 ? text("%.2f", peer / own) : "-";
            };
            const auto time = [](double ns) { return ns > 0 ? text("%.2f", ns) : "-"; };
            const std::string cells[] = {name,
                                         variant,
                                         time(element),
                                         time(peer_throughput),
                                         ratio(peer_throughput, element),
                                         time(call),
                                         time(peer_latency),
                                         ratio(peer_latency, call),
                                         over_kernel};
            for (std::size_t i = 0; i < columns.size(); ++i)
                columns[i].cells.push_back(cells[i]);
        }
    };
    const auto tier_here = [](const std::string& tiers) {
        return selected_tier(tiers, __brava_cpu_indicator);
    };
    for (const Entry& entry : entries()) {
        std::vector<std::string> tiers;
        for (const Kernel& kernel : entry.kernels)
            tiers.emplace_back(1, kernel.tier);
        add_rows(entry.name, tiers, tier_here(entry.tiers), elements_per_vector(entry.lanes));
    }
    for (const ScalarEntry& scalar : scalar_entries()) {
        std::vector<std::string> tiers;
        for (const char tier : scalar.tiers)
            tiers.emplace_back(1, tier);
        add_rows(scalar.name, tiers, scalar.tiers.empty() ? '-' : tier_here(scalar.tiers), 1);
    }
    print(columns);
}

} // namespace zelk::bench
