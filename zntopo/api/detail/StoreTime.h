#pragma once

#include <algorithm>
#include <limits>

namespace zntopo::detail {

/// A time in seconds UTC as the store holds it, in 32 bits.
inline int storeTime(long seconds) {
  return static_cast<int>(
      std::clamp<long>(seconds, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

}  // namespace zntopo::detail
