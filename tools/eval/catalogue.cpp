#include "catalogue.h"

#include "values.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace zelk::eval {

namespace {

const std::vector<Callable>& catalogue()
{
    static const std::vector<Callable> list = [] {
        std::vector<Callable> names;
        for (const Entry& entry : entries()) {
            names.push_back({entry.symbol, &entry, nullptr, false, 0});
            names.push_back({entry.masked, &entry, nullptr, true, 0});
            if (!entry.alias.empty()) {
                names.push_back({entry.alias, &entry, nullptr, false, 0});
                names.push_back({entry.alias + "Mask", &entry, nullptr, true, 0});
            }
            for (const Kernel& kernel : entry.kernels)
                names.push_back({kernel.symbol, &entry, nullptr, false, kernel.tier});
        }
        for (const ScalarEntry& scalar : scalar_entries()) {
            names.push_back({scalar.name, nullptr, &scalar, false, 0});
            for (const char tier : scalar.tiers)
                names.push_back({scalar.name + '.' + tier, nullptr, &scalar, false, tier});
        }
        return names;
    }();
    return list;
}

// Insertions, deletions and replacements that turn one word into the other.
std::size_t edit_distance(std::string_view from, std::string_view to)
{
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i);
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = diagonal + (from[i - 1] != to[j - 1]);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string_view short_name(std::string_view symbol)
{
    constexpr std::string_view prefix = "__zelk_";
    return symbol.starts_with(prefix) ? symbol.substr(prefix.size()) : symbol;
}

const Callable* find(std::string_view name)
{
    for (const Callable& callable : catalogue())
        if (name == callable.symbol || name == short_name(callable.symbol)) return &callable;
    return nullptr;
}

std::vector<std::string> similar_names(std::string_view name)
{
    const std::string wanted = lower_case(short_name(name));
    std::vector<std::pair<std::size_t, std::string>> candidates; // distance, name
    for (const Callable& callable : catalogue()) {
        if (callable.tier && wanted.find('.') == std::string::npos)
            continue; // a kernel for each would crowd out others
        const std::string_view candidate = short_name(callable.symbol);
        const std::string lower = lower_case(candidate);
        // A function's name without its lane suffix counts as very near.
        const std::size_t distance = !wanted.empty() && lower.starts_with(wanted)
                                         ? (lower.size() - wanted.size()) / 2
                                         : edit_distance(wanted, lower);
        if (distance <= std::max<std::size_t>(1, wanted.size() / 3))
            candidates.push_back({distance, std::string(candidate)});
    }
    std::ranges::sort(candidates);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < candidates.size() && i < 6; ++i)
        names.push_back(candidates[i].second);
    return names;
}

} // namespace zelk::eval
