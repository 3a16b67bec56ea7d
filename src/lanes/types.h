// The lane vectors: one 128-bit register each, lane 0 lowest in memory.
// Operators work lane by lane; a comparison gives an integer vector, all ones where it holds.
#pragma once

#include <cstdint>

namespace zelk {

using float4 = float __attribute__((vector_size(16)));
using double2 = double __attribute__((vector_size(16)));
using int4 = std::int32_t __attribute__((vector_size(16)));
using uint4 = std::uint32_t __attribute__((vector_size(16)));
using long2 = std::int64_t __attribute__((vector_size(16)));
using ulong2 = std::uint64_t __attribute__((vector_size(16)));
using ushort8 = std::uint16_t __attribute__((vector_size(16)));

// Complex scalars, passed and returned as C's float _Complex and double _Complex are. On x86-64 a float
// _Complex travels in the low half of a vector register, and as a vector it stays there.
#if defined(__x86_64__)
using complex_float = float __attribute__((vector_size(8)));
#else
__extension__ typedef float _Complex complex_float;
#endif
__extension__ typedef double _Complex complex_double;

} // namespace zelk
