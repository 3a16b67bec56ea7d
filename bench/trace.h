// The instructions that a call executes.
#pragma once

#include <cstdint>
#include <vector>

#include "call.h"

namespace zelk::bench {

// Their addresses, in order. The call is single-stepped; instructions of `zelk_call` itself are left out.
std::vector<std::uintptr_t> trace_call(const void* function, const Vec128& x, const Vec128& y);

} // namespace zelk::bench
