// Eigen's packet functions.
#include "table.h"

#include <Eigen/Core>

using namespace Eigen::internal;

const PeerFunction peer_functions[] = {
    {"sin", [](__m128 x) -> __m128 { return psin(Packet4f(x)); }, nullptr, nullptr, nullptr},
    {"cos", [](__m128 x) -> __m128 { return pcos(Packet4f(x)); }, nullptr, nullptr, nullptr},
    {"exp", [](__m128 x) -> __m128 { return pexp(Packet4f(x)); },
     [](__m128d x) -> __m128d { return pexp(Packet2d(x)); }, nullptr, nullptr},
    {"log", [](__m128 x) -> __m128 { return plog(Packet4f(x)); },
     [](__m128d x) -> __m128d { return plog(Packet2d(x)); }, nullptr, nullptr},
    {"log2", [](__m128 x) -> __m128 { return plog2(Packet4f(x)); },
     [](__m128d x) -> __m128d { return plog2(Packet2d(x)); }, nullptr, nullptr},
    {"tanh", [](__m128 x) -> __m128 { return ptanh(Packet4f(x)); }, nullptr, nullptr, nullptr},
    {"sqrt", [](__m128 x) -> __m128 { return psqrt(Packet4f(x)); },
     [](__m128d x) -> __m128d { return psqrt(Packet2d(x)); }, nullptr, nullptr},
    {"rsqrt", [](__m128 x) -> __m128 { return prsqrt(Packet4f(x)); },
     [](__m128d x) -> __m128d { return prsqrt(Packet2d(x)); }, nullptr, nullptr},
    {"floor", [](__m128 x) -> __m128 { return pfloor(Packet4f(x)); },
     [](__m128d x) -> __m128d { return pfloor(Packet2d(x)); }, nullptr, nullptr},
    {"ceil", [](__m128 x) -> __m128 { return pceil(Packet4f(x)); },
     [](__m128d x) -> __m128d { return pceil(Packet2d(x)); }, nullptr, nullptr},
    {"rint", [](__m128 x) -> __m128 { return print(Packet4f(x)); },
     [](__m128d x) -> __m128d { return print(Packet2d(x)); }, nullptr, nullptr},
#if defined(__SSE4_1__)
    {"round", [](__m128 x) -> __m128 { return pround(Packet4f(x)); },
     [](__m128d x) -> __m128d { return pround(Packet2d(x)); }, nullptr, nullptr},
#endif
    {},
};
