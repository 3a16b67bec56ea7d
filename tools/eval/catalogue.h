// Every name of the library that can be called, and what stands behind it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "entries.h"

namespace zelk::eval {

struct Callable {
    std::string symbol;
    const Entry* entry;        // null for a scalar routine
    const ScalarEntry* scalar; // null for a vector function
    bool masked;
    char tier; // of a kernel; 0 where a dispatcher chooses or there is nothing to choose
};

// By exported name, or by that name without its "__zelk_". Null if there is none.
const Callable* find(std::string_view name);

// Names that the user may have meant, the likeliest first.
std::vector<std::string> similar_names(std::string_view name);

// "sinf4" of "__zelk_sinf4".
std::string_view short_name(std::string_view symbol);

} // namespace zelk::eval
