// Calling a scalar routine of the list in the platform's own convention.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "call.h"

namespace zelk::eval {

struct Shown {
    std::string decimal;
    std::string bits;
};

struct ScalarOutcome {
    std::vector<Shown> arguments; // as read
    std::vector<Shown> results;   // returned, then stored
    unsigned flags;
};

// How many arguments a routine of this signature takes; nothing if no call of this form is known.
std::optional<std::size_t> scalar_arguments(const std::string& signature);

ScalarOutcome call_scalar(const void* address, const std::string& signature,
                          std::span<const std::string> arguments, Rounding rounding);

} // namespace zelk::eval
