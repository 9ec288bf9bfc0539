#pragma once

#include "zntopo/core/detail/TraceLine.h"

namespace zntopo::detail {

/// The trace's categories that the filters use.
inline constexpr int kTraceStatement = 1;
inline constexpr int kTraceFailure = 4;
inline constexpr int kTraceStep = 9;
inline constexpr int kTraceStart = 12;
inline constexpr int kTraceDetail = 25;

/// Traces what `text` gives, which is only called if somebody listens.
template <typename Text>
void traceFilter(const TracedCategory& category, const Text& text) {
  traceLine(category, text);
}

}  // namespace zntopo::detail
