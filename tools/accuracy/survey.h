// Measuring the errors of an entry's kernels.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "arguments.h"
#include "call.h"
#include "functions.h"

namespace zelk::accuracy {

// What a kernel's results on one path amount to. Indices of arrays are rounding modes.
struct Tally {
    std::uint64_t arguments = 0;
    std::uint64_t sampled = 0;           // of them, not chosen for the errors near them
    std::uint64_t rounded_correctly = 0; // of those, in round to nearest
    std::array<double, 4> max_ulp{};
    Argument worst{};        // in round to nearest
    std::uint64_t wrong = 0; // NaNs, infinities and zeros' signs that are not the exact result's, to nearest
    Argument first_wrong{};
    std::uint64_t directed_wrong = 0;        // the same in the other modes
    double max_ulp_beside_others = 0;        // in vectors with lanes of other paths
    std::uint64_t changed_beside_others = 0; // results whose bits differ there
    // The worst arguments in round to nearest, with their errors, in no order.
    std::vector<std::pair<double, Argument>> worst_few;
    void note_error(double ulp, const Argument& argument);
    void include(const Tally& other);
};

// The largest error in each of the parts into which the magnitudes of arguments are divided, 8 to the binade.
using Curve = std::map<int, double>;
inline constexpr int curve_parts = 8;

struct Survey {
    std::vector<std::string> paths; // one more for the whole, "all", in front
    std::vector<Tally> tallies;
    Curve curve;
    bool is_exhaustive = false;
};

// A hash of a kernel's results at a few thousand of the arguments: another hash, another kernel.
std::uint64_t hash_of_results(const Entry& entry, const Kernel& kernel,
                              const std::vector<Argument>& arguments);

// One for each kernel. `report` is told the share that is done.
std::vector<Survey> measure(const Entry& entry, const Function& function, const std::vector<Kernel>& kernels,
                            const std::vector<Argument>& arguments, int refinements, unsigned threads,
                            void (*report)(const Entry&, double share));

} // namespace zelk::accuracy
