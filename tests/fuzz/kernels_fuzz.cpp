// Fuzzing the vector functions: all tiers against the exact result within the published errors, and against
// each other. The library itself is not instrumented; a counter for each entry, path and size of error guides
// the search to arguments of new paths and of larger errors instead.
#include "functions.h"
#include "report.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>

#include "call.h"
#include "exact.h"

using namespace zelk;
using namespace zelk::accuracy;

namespace {

__attribute__((section("__libfuzzer_extra_counters"))) unsigned char counters[1 << 16];

void count(std::size_t entry, unsigned result, std::size_t path, double ulp)
{
    const int size = ulp > 0 ? std::clamp(static_cast<int>(8 * ulp), 1, 63) : 0;
    unsigned char& counter =
        counters[(((entry * 2 + result) * 8 + path % 8) * 64 + static_cast<std::size_t>(size)) %
                 sizeof counters];
    if (counter < 255) ++counter;
}

struct Published {
    double bound = 0;          // in any company
    bool may_be_wrong = false; // a NaN, an infinity or a zero's sign somewhere
};

// A search finds more than a sample: an error is reported when it is above the published one by a quarter.
Published published(const Entry& entry)
{
    static const auto table = [] {
        const char* const file = std::getenv("ZELK_PUBLISHED");
        std::ifstream in(file ? file : "docs/accuracy/errors_x86_64.csv");
        const Rows rows = read_csv(in);
        if (rows.empty()) {
            std::fprintf(stderr, "no published errors\n");
            std::abort();
        }
        std::map<std::string, Published> bounds;
        for (const auto& row : rows) {
            if (row[column_max_beside] == "-") continue; // a scalar routine
            Published& of_entry = bounds[row[column_entry]];
            of_entry.bound =
                std::max({of_entry.bound, std::stod(row[column_max_ulp]), std::stod(row[column_max_beside])});
            of_entry.may_be_wrong = of_entry.may_be_wrong || row[column_wrong] != "0";
        }
        return bounds;
    }();
    const Published& of_entry = table.at(entry.name);
    return {of_entry.bound * 1.25 + 0.01, of_entry.may_be_wrong};
}

double lane_of(const Entry& entry, const Vec128& v, unsigned lane)
{
    switch (entry.lanes) {
    case Lanes::d2:
        return v.d[lane];
    case Lanes::i4:
        return v.i[lane];
    case Lanes::u4:
        return v.u[lane];
    default:
        return static_cast<double>(v.f[lane]);
    }
}

[[noreturn]] void fail(const Kernel& kernel, const Vec128& a, const Vec128& b, const Vec128& got,
                       const char* what, double ulp)
{
    std::fprintf(stderr, "%s of %s %s gives %s: %s (%g ulp)\n", kernel.symbol.c_str(), hex(a).c_str(),
                 hex(b).c_str(), hex(got).c_str(), what, ulp);
    std::abort();
}

bool has_exact_result(const Entry& entry, double x, double y)
{
    if (entry.lanes == Lanes::i4 || entry.lanes == Lanes::u4) return y != 0 && !(y == -1 && x == -0x1p31);
    return std::isfinite(x) && std::isfinite(y);
}

void try_entry(std::size_t index, const Entry& entry, const Vec128& a, const Vec128& b)
{
    const Function& function = *find_function(entry.name);
    const Format format = format_of(entry.lanes);
    const bool is_complex = entry.lanes == Lanes::c2;
    const unsigned step = is_complex ? 2 : 1;
    const unsigned results = is_complex || entry.results != Results::one ? 2 : 1;
    std::vector<Result> got;
    Vec128 stored;
    for (const Kernel& kernel : entry.kernels)
        got.push_back(call(kernel.address, a, b, {}, &stored));

    Exact x(53);
    Exact y(53);
    Exact values[2] = {Exact(precision_of(format)), Exact(precision_of(format))};
    for (unsigned lane = 0; lane < lane_count(entry.lanes); lane += step) {
        const double first = lane_of(entry, a, lane);
        const double second = is_complex        ? lane_of(entry, a, lane + 1)
                              : entry.args == 2 ? lane_of(entry, b, lane)
                                                : 0;
        const bool is_exact = has_exact_result(entry, first, second);
        mpfr_set_d(x.value, first, MPFR_RNDN);
        mpfr_set_d(y.value, second, MPFR_RNDN);
        if (is_exact) function.evaluate(values[0].value, values[1].value, x.value, y.value);
        for (unsigned which = 0; which < results; ++which) {
            const Reference reference = is_exact ? Reference(values[which].value, format) : Reference();
            const Published bound = published(entry);
            for (std::size_t i = 0; i < entry.kernels.size(); ++i) {
                const Vec128& v = which == 1 && !is_complex ? got[i].second : got[i].first;
                const unsigned place = is_complex ? lane + which : lane;
                const double result = lane_of(entry, v, place);
                const Vec128& v0 = which == 1 && !is_complex ? got[0].second : got[0].first;
                if (std::isnan(result) != std::isnan(lane_of(entry, v0, place)))
                    fail(entry.kernels[i], a, b, v, "a NaN in one tier only", 0);
                if (!is_exact) continue;
                const Judgement judgement = reference.judge(result, format, true);
                count(index, which, path_of(function, format, first, second, reference), judgement.ulp);
                if (judgement.ulp > bound.bound)
                    fail(entry.kernels[i], a, b, v, "above the published error", judgement.ulp);
                if (judgement.is_wrong && !bound.may_be_wrong)
                    fail(entry.kernels[i], a, b, v, "a NaN, an infinity or a sign", 0);
            }
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 33) return 0;
    Vec128 a;
    Vec128 b;
    std::memcpy(&a, data + 1, sizeof a);
    std::memcpy(&b, data + 17, sizeof b);
    const auto all = entries();
    const std::size_t index = data[0] % all.size();
    try_entry(index, all[index], a, b);
    return 0;
}
