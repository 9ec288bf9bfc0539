#pragma once

#include "zntopo/core/detail/TraceLine.h"

namespace zntopo::detail {

// The trace's categories that notifications use.
inline constexpr int kTraceEvent = 1;
inline constexpr int kTraceEventFailure = 4;

}  // namespace zntopo::detail
