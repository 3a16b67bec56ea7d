// Every binary32 argument there is.
#pragma once

#include "survey.h"

namespace zelk::accuracy {

// One argument, four binary32 lanes.
bool can_be_exhausted(const Entry& entry);
// Replaces what the surveys say of round to nearest by what all arguments give.
void measure_exhaustively(const Entry& entry, const Function& function, const std::vector<Kernel>& kernels,
                          unsigned threads, void (*report)(const Entry&, double share),
                          std::vector<Survey>& surveys);

} // namespace zelk::accuracy
