#include "entries.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace zelk {

namespace {

#if defined(__x86_64__)
constexpr bool is_64_bit = true;
#else
constexpr bool is_64_bit = false;
#endif

void* library()
{
    static void* const handle = dlopen("libzelk.so.1", RTLD_NOW);
    if (!handle) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::abort();
    }
    return handle;
}

// Tiers in which a function on these lanes is built on this target.
std::string built_tiers(Lanes lanes)
{
    if (is_64_bit) return "AL";
    return lanes == Lanes::d2 ? "ALN" : "AJLN";
}

struct Row {
    const char* name;
    const char* symbol;
    Lanes lanes;
    int args;
    Results results;
    const char* tiers_x86_64;
    const char* tiers_i386;
    MaskKind mask;
    double a;
    double b;
    const char* alias;
};

constexpr Results results_1 = Results::one;
constexpr Results results_2 = Results::two;
constexpr Results results_P = Results::pointer;

#define ZELK_SCALAR(...)
#define ZELK_ENTRY(kernel, symbol, lanes, args, results, x86_64, i386, mask, a, b, alias)                    \
    {#kernel, #symbol, Lanes::lanes, args, results_##results, #x86_64, #i386, MaskKind::mask, a, b, #alias},
constexpr Row rows[] = {
#include "dispatch/entries.def"
};
#undef ZELK_ENTRY

// Those functions whose tier A on i386 is a loop over the lanes.
#define ZELK_ENTRY(...)
#define ZELK_LANE_LOOP(kernel) #kernel,
constexpr std::string_view lane_loops[] = {
#include "dispatch/entries.def"
};
#undef ZELK_ENTRY
#undef ZELK_SCALAR

std::vector<Entry> make_entries()
{
    std::vector<Entry> list;
    for (const Row& row : rows) {
        const std::string built = built_tiers(row.lanes);
        Entry entry{row.name,
                    row.symbol,
                    row.lanes,
                    row.args,
                    row.results,
                    is_64_bit ? row.tiers_x86_64 : row.tiers_i386,
                    row.mask,
                    {row.a, row.b},
                    std::string_view(row.alias) == "none" ? "" : row.alias,
                    exported(row.symbol),
                    row.symbol + std::string(row.results == Results::pointer ? "Mask" : "_mask"),
                    {}};
        const bool has_lane_loop = !is_64_bit && std::find(std::begin(lane_loops), std::end(lane_loops),
                                                           entry.name) != std::end(lane_loops);
        for (const char tier : built) {
            const std::string symbol = entry.symbol + '.' + tier;
            entry.kernels.push_back({symbol, tier, exported(symbol), tier == 'A' && has_lane_loop});
        }
        list.push_back(std::move(entry));
    }
    return list;
}

} // namespace

const void* exported(const std::string& symbol)
{
    return dlsym(library(), symbol.c_str());
}

unsigned lane_count(Lanes lanes)
{
    return lanes >= Lanes::f ? 1 : lanes == Lanes::d2 ? 2 : 4;
}

std::uint32_t tier_mask(char tier)
{
    switch (tier) {
    case 'N':
        return 0xFFFFE000;
    case 'L':
        return 0xFFFFF800;
    case 'J':
        return 0xFFFFFE00;
    default:
        return 0xFFFFFFFF;
    }
}

char selected_tier(std::string_view tiers, std::uint32_t feature_word)
{
    for (const char tier : tiers)
        if (feature_word & tier_mask(tier)) return tier;
    return tiers.back();
}

std::vector<Kernel> without_lane_loops(std::span<const Kernel> kernels)
{
    std::vector<Kernel> rest(kernels.begin(), kernels.end());
    std::erase_if(rest, [](const Kernel& kernel) { return kernel.lane_loop; });
    return rest;
}

std::span<const Entry> entries()
{
    static const std::vector<Entry> list = make_entries();
    return list;
}

const Entry& entry(std::string_view name)
{
    for (const Entry& candidate : entries())
        if (candidate.name == name || candidate.symbol == name) return candidate;
    std::fprintf(stderr, "no entry %.*s\n", static_cast<int>(name.size()), name.data());
    std::abort();
}

std::span<const ScalarEntry> scalar_entries()
{
    static const std::vector<ScalarEntry> list = [] {
        struct Scalar {
            const char* name;
            const char* signature;
            const char* tiers_x86_64;
            const char* tiers_i386;
        };
        const std::vector<Scalar> scalars = {
#define ZELK_ENTRY(...)
#define ZELK_SCALAR(kernel, signature, x86_64, i386) {#kernel, #signature, #x86_64, #i386},
#include "dispatch/entries.def"
#undef ZELK_ENTRY
#undef ZELK_SCALAR
        };
        std::vector<ScalarEntry> result;
        for (const Scalar& scalar : scalars) {
            const std::string tiers = is_64_bit ? scalar.tiers_x86_64 : scalar.tiers_i386;
            const bool exported = tiers != "plain" && tiers.find("_hidden") == std::string::npos;
            result.push_back({scalar.name, scalar.signature, exported ? tiers : ""});
        }
        return result;
    }();
    return list;
}

std::span<const DataEntry> data_entries()
{
    static const DataEntry list[] = {
#define ZELK_ENTRY(...)
#define ZELK_SCALAR(...)
#define ZELK_DATA(name, type, entries, values) {#name, sizeof(type) * entries * values},
#include "dispatch/entries.def"
#undef ZELK_ENTRY
#undef ZELK_SCALAR
    };
    return list;
}

std::vector<std::string> listed_exports()
{
    std::vector<std::string> names;
    for (const Entry& entry : entries()) {
        names.push_back(entry.symbol);
        names.push_back(entry.masked);
        if (!entry.alias.empty()) {
            names.push_back(entry.alias);
            names.push_back(entry.alias + "Mask");
        }
        for (const Kernel& kernel : entry.kernels)
            names.push_back(kernel.symbol);
    }
    for (const ScalarEntry& scalar : scalar_entries()) {
        names.push_back(scalar.name);
        for (const char tier : scalar.tiers)
            names.push_back(scalar.name + '.' + tier);
    }
    for (const DataEntry& data : data_entries())
        names.push_back(data.name);
    return names;
}

} // namespace zelk
