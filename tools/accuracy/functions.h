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
    long double value;
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
    bool follows_rounding = false;   // the exact result depends on the rounding mode
    bool is_circular = false;        // arguments next to multiples of pi/2 are hard
    bool is_in_degrees = false;      // those next to multiples of 90
    const char* parts[2] = {"", ""}; // of two results: "sine: ", "cosine: "
};

const std::vector<Function>& functions();
// Null for an entry that is not listed.
const Function* find_function(std::string_view entry);

// The vector entries, then the scalar routines as entries with one lane. The kernel of a routine without
// tiers has the tier '-'.
const std::vector<Entry>& surveyed();
const Entry* find_surveyed(std::string_view name);
inline constexpr bool is_scalar(Lanes lanes)
{
    return lanes >= Lanes::f;
}
inline constexpr bool is_complex(Lanes lanes)
{
    return lanes == Lanes::c2 || lanes == Lanes::c || lanes == Lanes::z;
}
inline constexpr bool is_integer(Lanes lanes)
{
    return lanes == Lanes::i4 || lanes == Lanes::u4;
}

// Of the arguments; and of the results, which is another only where a routine stores binary64 numbers.
Format format_of(Lanes lanes);
Format result_format(const Entry& entry);
// The names of the paths of a function, and the path of an argument. The last two are subnormal arguments and
// subnormal results, which come first.
std::vector<std::string> paths(const Function& function);
std::size_t path_of(const Function& function, const Format& format, long double x, long double y,
                    const Reference& result);

} // namespace zelk::accuracy
