// What each function of the list is measured on: its arguments, the scalar code that it stands beside, and
// its exact values.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include <mpfr.h>

#include "vector_loops.h"

namespace zelk::bench {

// Uniform over an interval; with `smallest`, magnitudes from there to `high` uniform in their logarithm, and
// of both signs where `low` is negative.
struct Range {
    double low = 0;
    double high = 0;
    double smallest = 0;
};

enum class Input { ordinary, wide, large, one_special, all_special };
inline constexpr Input all_inputs[] = {Input::ordinary, Input::wide, Input::large, Input::one_special,
                                       Input::all_special};

// Ranges without extent: there is no such input for the function.
struct Arguments {
    Range ordinary[2];
    Range wide[2];
    Range large[2];
    // Values that leave the vector path; a lane gets the next one. A NaN in `special_y` leaves y as it is.
    double specials[4];
    double special_y;
};

// An MPFR function of one or two arguments; null: none.
struct Exact {
    int (*unary)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t) = nullptr;
    int (*binary)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t) = nullptr;
};

struct Workload {
    std::string_view function; // the peers' name of it: "sin"
    Arguments arguments;
    const void* libm; // scalar code for the same function, once per lane; null where there is none
    Convention libm_convention;
    Exact exact;
};

// A complex number is one element of two lanes.
inline unsigned elements_per_vector(Lanes lanes)
{
    return lanes == Lanes::c2 ? 2 : lane_count(lanes);
}

// By the entry's name in the list. Nothing is a fault of the table.
std::optional<Workload> find_workload(std::string_view entry);

// Fills x and y, each of `bytes`, with the same arguments on every call. False if the function has no such
// input.
bool fill(void* x, void* y, std::size_t bytes, const Workload& workload, Input input, Lanes lanes);

// The exact results for some ordinary arguments; nothing if the exact function is not known, as of complex
// functions and of integers.
std::vector<long double> exact_values(const Workload& workload, Lanes lanes);
// The largest error of throughput(function, ...) against them, in ulp; negative if there are none.
double largest_error(const Workload& workload, const std::vector<long double>& exact, Lanes lanes,
                     Loop throughput, const void* function);

} // namespace zelk::bench
