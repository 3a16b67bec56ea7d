// The arguments that a survey tries: every binade, the lanes of every path, and the places where methods
// change.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "functions.h"

namespace zelk::accuracy {

// One lane's arguments, or the parts of a complex number.
struct Argument {
    long double x;
    long double y;
    bool operator==(const Argument&) const = default;
};

struct Amount {
    std::size_t samples = 100000; // of random arguments for each entry
    int radius = 256;             // neighbours on each side of a threshold, in units in the last place
    int refinements = 3;          // times that the surroundings of the worst arguments are searched
};

// Reproducible. Arguments of one kind stand together, and what a smaller amount asks for is part of what a
// larger one gives.
std::vector<Argument> survey_arguments(const Entry& entry, const Function& function, const Amount& amount);

// In the surroundings of each of the given ones, near and far.
std::vector<Argument> surroundings(const Entry& entry, const std::vector<Argument>& arguments,
                                   std::uint64_t seed);

} // namespace zelk::accuracy
