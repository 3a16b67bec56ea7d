// zelk-bench: the speed of every entry and kernel beside that of other libraries, in one run.
//
// usage: zelk-bench [--seconds N] [--output FILE] [--libm-only NAME] [--traces FILE] [ENTRY]...
//
// Prints one line per function and form, as comma-separated values (to FILE with --output). --seconds is the
// time for what runs in the first-level cache, and 0 means one short burst of each; --libm-only measures the
// C library's functions alone and calls them NAME, for a run with another choice of their variants. --traces
// writes the instructions that a call of each kernel executes, as offsets in the library.
#include "measurement.h"
#include "peers.h"
#include "scalar_workloads.h"
#include "trace.h"
#include "vector_loops.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <dlfcn.h>
#include <span>
#include <string>
#include <string_view>

namespace zelk::bench {

namespace {

struct Options {
    double seconds = 1;
    const char* output = nullptr;
    const char* libm_only = nullptr;
    const char* traces = nullptr;
    std::vector<std::string_view> names;

    bool wants(std::string_view name) const
    {
        return names.empty() || std::ranges::find(names, name) != names.end();
    }
};

struct Data {
    Block x[std::size(all_inputs)];
    Block y[std::size(all_inputs)];
    bool exists[std::size(all_inputs)];
};

// What is measured together: the forms of an entry and its peers.
struct Group {
    Data* data;
    std::vector<Variant*> variants;
};

struct Plan {
    std::deque<Data> data;
    std::deque<Variant> variants;
    std::vector<Group> groups;
    std::vector<Series> series;
};

Block first_results;
Block second_results;
Block active_mask;

Arrays arrays_of(Data& data, Input input)
{
    const auto i = static_cast<std::size_t>(input);
    return {data.x[i].storage, data.y[i].storage, first_results.storage, second_results.storage,
            Block::bytes};
}

void add(Plan& plan, Group& group, Variant&& variant)
{
    Variant& added = plan.variants.emplace_back(std::move(variant));
    group.variants.push_back(&added);
    for (const Input input : all_inputs)
        if (group.data->exists[static_cast<std::size_t>(input)])
            plan.series.push_back({&added, static_cast<Measure>(input), arrays_of(*group.data, input)});
    if (added.loops.latency)
        plan.series.push_back({&added, Measure::latency, arrays_of(*group.data, Input::ordinary)});
}

// The masked entry and the alias, on ordinary arguments; they are what the dispatcher is but for a few
// instructions. The mask is the next argument: of a one-argument function, what y is otherwise.
void add_forwarders(Plan& plan, const Entry& entry, Variant form)
{
    const auto add_form = [&](const char* name, const std::string& symbol, int arguments, void* y) {
        form.name = name;
        form.function = exported(symbol);
        form.loops = vector_loops(entry.lanes, arguments, convention_of(entry.results));
        Variant& added = plan.variants.emplace_back(form);
        Arrays arrays = arrays_of(*plan.groups.back().data, Input::ordinary);
        arrays.y = y;
        plan.series.push_back({&added, Measure::ordinary, arrays});
    };
    void* const y = plan.groups.back().data->y[0].storage;
    if (!entry.alias.empty()) add_form("alias", entry.alias, entry.args, y);
    if (entry.results != Results::pointer) // there the pointer stands between
        add_form("masked", entry.masked, entry.args + 1, entry.args == 1 ? active_mask.storage : y);
}

// False if the table of workloads lacks the entry.
bool add_entry(Plan& plan, const Entry& entry, const Options& options)
{
    const auto workload = find_workload(entry.name);
    if (!workload) {
        std::fprintf(stderr, "zelk-bench: bench/workloads.cpp has no row for %s\n", entry.name.c_str());
        return false;
    }
    Data& data = plan.data.emplace_back();
    for (const Input input : all_inputs) {
        const auto i = static_cast<std::size_t>(input);
        data.exists[i] =
            fill(data.x[i].storage, data.y[i].storage, Block::bytes, *workload, input, entry.lanes);
    }
    Group& group = plan.groups.emplace_back(Group{&data, {}});
    const double vectors_per_byte = 1.0 / 16;
    const unsigned elements = elements_per_vector(entry.lanes);
    const std::vector<long double> exact = exact_values(*workload, entry.lanes);
    const auto variant = [&](const std::string& name, const void* function, Loops loops) {
        return Variant{.entry = entry.name,
                       .name = name,
                       .function = function,
                       .loops = loops,
                       .elements_per_byte = vectors_per_byte * elements,
                       .calls_per_byte = vectors_per_byte,
                       .error = largest_error(*workload, exact, entry.lanes, loops.throughput, function)};
    };
    if (workload->libm)
        add(plan, group,
            variant(options.libm_only ? options.libm_only : "libm", workload->libm,
                    vector_loops(entry.lanes, entry.args, workload->libm_convention)));
    if (options.libm_only) return true;
    const Loops loops = vector_loops(entry.lanes, entry.args, convention_of(entry.results));
    const Variant dispatcher = variant("dispatcher", entry.address, loops);
    add(plan, group, Variant(dispatcher));
    for (const Kernel& kernel : entry.kernels)
        add(plan, group, variant(std::string("tier ") + kernel.tier, kernel.address, loops));
    for (const Peer& peer : find_peers(workload->function, entry.lanes))
        add(plan, group,
            variant(peer.name, peer.function, vector_loops(entry.lanes, entry.args, peer.convention)));
    add_forwarders(plan, entry, dispatcher);
    return true;
}

void add_scalar(Plan& plan, const ScalarWorkload& workload, const Options& options)
{
    const void* const routine = exported(workload.routine);
    if (!routine) return;
    Data& data = plan.data.emplace_back();
    data.exists[0] = workload.fill(data.x[0].storage, data.y[0].storage, Block::bytes);
    Group& group = plan.groups.emplace_back(Group{&data, {}});
    const auto add_function = [&](const char* name, const void* function) {
        add(plan, group,
            Variant{.entry = workload.routine,
                    .name = name,
                    .function = function,
                    .loops = {workload.throughput, nullptr},
                    .elements_per_byte = 1.0 / static_cast<double>(workload.size)});
    };
    if (workload.libm) add_function(options.libm_only ? options.libm_only : "libm", workload.libm);
    if (!options.libm_only) add_function("dispatcher", routine);
}

void print(std::FILE* file, const Plan& plan)
{
    std::fputs("entry,called,error_ulp", file);
    for (const char* measure : measure_names)
        std::fprintf(file, ",%s_min,%s_median", measure, measure);
    std::fputc('\n', file);
    for (const Variant& variant : plan.variants) {
        std::fprintf(file, "%s,%s,", variant.entry.c_str(), variant.name.c_str());
        if (variant.error >= 0) std::fprintf(file, "%.3g", variant.error);
        for (const Samples& samples : variant.samples) {
            if (samples.empty())
                std::fputs(",,", file);
            else
                std::fprintf(file, ",%.3f,%.3f", samples.smallest(), samples.median());
        }
        std::fputc('\n', file);
    }
}

// A line for each kernel: its symbol and the offsets of the instructions of a typical call, the one of median
// length among some vectors of ordinary arguments.
void write_traces(std::FILE* file, const Options& options)
{
    for (const Entry& entry : entries()) {
        if (!options.wants(entry.name)) continue;
        alignas(16) static Vec128 x[15], y[15];
        const auto workload = find_workload(entry.name);
        if (!workload || !fill(x, y, sizeof x, *workload, Input::ordinary, entry.lanes)) continue;
        for (const Kernel& kernel : entry.kernels) {
            std::vector<std::vector<std::uintptr_t>> traces;
            for (std::size_t i = 0; i < std::size(x); ++i)
                traces.push_back(trace_call(kernel.address, x[i], y[i]));
            std::ranges::sort(traces, {}, [](const auto& trace) { return trace.size(); });
            Dl_info info;
            dladdr(kernel.address, &info);
            std::fputs(kernel.symbol.c_str(), file);
            for (const std::uintptr_t address : traces[traces.size() / 2])
                std::fprintf(
                    file, " %zx",
                    static_cast<std::size_t>(address - reinterpret_cast<std::uintptr_t>(info.dli_fbase)));
            std::fputc('\n', file);
        }
    }
}

bool is_known(std::string_view name)
{
    return std::ranges::find(entries(), name, &Entry::name) != entries().end() ||
           std::ranges::find(scalar_workloads(), name, &ScalarWorkload::routine) != scalar_workloads().end();
}

bool parse(std::span<char*> arguments, Options& options)
{
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string_view word = arguments[i];
        const char* const value = i + 1 < arguments.size() ? arguments[i + 1] : nullptr;
        if (value && word == "--seconds") {
            options.seconds = std::atof(value);
        } else if (value && word == "--output") {
            options.output = value;
        } else if (value && word == "--libm-only") {
            options.libm_only = value;
        } else if (value && word == "--traces") {
            options.traces = value;
        } else if (is_known(word)) {
            options.names.push_back(word);
            continue;
        } else {
            std::fprintf(stderr, "zelk-bench: '%s' is no option and no function of the library\n",
                         arguments[i]);
            return false;
        }
        ++i;
    }
    return true;
}

// Standard output without a name.
template <class Write>
bool write_file(const char* name, Write write)
{
    std::FILE* const file = name ? std::fopen(name, "w") : stdout;
    if (!file) {
        std::perror(name);
        return false;
    }
    write(file);
    return std::fflush(file) == 0;
}

bool run(const Options& options)
{
    if (options.traces)
        return write_file(options.traces, [&](std::FILE* file) { write_traces(file, options); });

    std::memset(active_mask.storage, 0xFF, Block::bytes);
    Plan plan;
    for (const Entry& entry : entries())
        if (options.wants(entry.name) && !add_entry(plan, entry, options)) return false;
    for (const ScalarWorkload& workload : scalar_workloads())
        if (options.wants(workload.routine)) add_scalar(plan, workload, options);
    const double clock_before = measure_gigahertz();
    measure_interleaved(plan.series, options.seconds);
    for (const Group& group : plan.groups)
        if (!group.variants.empty() && options.seconds > 0)
            measure_in_memory(group.variants, group.data->x[0].storage, group.data->y[0].storage);
    std::fprintf(stderr, "clock %.3f GHz\n", std::max(clock_before, measure_gigahertz()));
    return write_file(options.output, [&](std::FILE* file) { print(file, plan); });
}

} // namespace

} // namespace zelk::bench

int main(int argc, char** argv)
{
    zelk::bench::Options options;
    if (!zelk::bench::parse(std::span(argv, static_cast<std::size_t>(argc)), options)) return 2;
    return zelk::bench::run(options) ? 0 : 1;
}
