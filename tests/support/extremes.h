// Where a format ends.
#pragma once

#include <limits>

namespace zelk::test {

template <class T>
constexpr T infinity = std::numeric_limits<T>::infinity();
template <class T>
constexpr T quiet_nan = std::numeric_limits<T>::quiet_NaN();
template <class T>
constexpr T smallest = std::numeric_limits<T>::denorm_min();
template <class T>
constexpr T smallest_normal = std::numeric_limits<T>::min();
template <class T>
constexpr T largest = std::numeric_limits<T>::max();

} // namespace zelk::test
