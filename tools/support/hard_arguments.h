// Arguments on which an argument reduction shows what it is worth.
#pragma once

#include <vector>

namespace zelk {

// For every binary exponent, the arguments that lie nearest to a multiple of pi/2 compared with their size:
// up to 2^-62 of the argument's last place, so that a reduction has to carry that many bits more. From 1 to
// the largest number, in ascending order of the exponent of the last place.
std::vector<float> near_multiples_of_half_pi_f();
std::vector<double> near_multiples_of_half_pi();
// As near as 2^-75.5; of every `step`-th exponent.
std::vector<long double> near_multiples_of_half_pi_l(int step);

} // namespace zelk
