// atan2 on the axes, binary32, for the complex functions.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

// The pattern of atan2(y, x) from the patterns of y and x, one of which is zero. Only the signs of x and of
// y, and whether y is zero, are looked at. Raises nothing.
ZELK_INLINE std::int32_t ropsAtan24Sc(std::int32_t ybits, std::int32_t xbits)
{
    const std::int32_t sign = ybits & INT32_MIN;
    if (ybits != sign) return sign | 0x3FC90FDB; // +-pi/2
    return xbits < 0 ? sign | 0x40490FDB : sign; // +-pi, +-0
}

} // namespace zelk::ZELK_TIER
