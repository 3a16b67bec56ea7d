// What every entry computes, and where its methods change: the facts that a survey of errors needs.
#pragma once

#include <mpfr.h>

#include <string>
#include <string_view>
#include <vector>

#include "entries.h"
#include "reference.h"

namespace zelk::accuracy {

// The exact result, for two results and for complex numbers the exact pair; x and y are the two arguments, or
// the parts of a complex one.
using Evaluate = void (*)(mpfr_ptr first, mpfr_ptr second, mpfr_srcptr x, mpfr_srcptr y);

// A magnitude of the argument at which the method changes; the argument equal to it is on the lower side.
struct Edge {
    double value;
    const char* text;
};

// How pairs of arguments are chosen, and which paths they take.
enum class Pairs { none, power, ratio, division };

struct Function {
    const char* entry;
    const char* family;
    Evaluate evaluate;
    std::vector<Edge> edges; // of powers: bases next to which arguments are sought
    Pairs pairs = Pairs::none;
    bool follows_rounding = false; // the exact result depends on the rounding mode
    bool is_circular = false;      // arguments next to multiples of pi/2 are hard
};

const std::vector<Function>& functions();
// Null for an entry that is not listed.
const Function* find_function(std::string_view entry);

Format format_of(Lanes lanes);
// The names of the paths of a function, and the path of an argument. The last two are subnormal arguments and
// subnormal results, which come first.
std::vector<std::string> paths(const Function& function);
std::size_t path_of(const Function& function, const Format& format, double x, double y,
                    const Reference& result);

} // namespace zelk::accuracy
