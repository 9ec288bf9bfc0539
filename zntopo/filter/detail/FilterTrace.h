#pragma once

#include <string>
#include <string_view>

#include "zntopo/core/Trace.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo::detail {

/// The trace's categories that the filters use.
inline constexpr int kTraceStatement = 1;
inline constexpr int kTraceFailure = 4;
inline constexpr int kTraceStep = 9;
inline constexpr int kTraceStart = 12;
inline constexpr int kTraceDetail = 25;

/// A category, and the place that the trace quotes: that of the call.
struct TracedCategory {
  consteval TracedCategory(int category,  // NOLINT(google-explicit-constructor)
                           std::string_view path = __builtin_FILE(), int line = __builtin_LINE())
      : number(category), place("", path, line) {}

  int number;
  TracedBlock place;
};

/// Traces what `text` gives, which is only called if somebody listens.
template <typename Text>
void traceFilter(const TracedCategory& category, const Text& text) {
  const TvXplTrc::TraceObj_t& trace = topoSvcProcObj;
  if (!trace.IsActive(category.number)) return;
  trace.DoTrace(category.number, std::string(text()).c_str(), category.place.file,
                category.place.line);
}

}  // namespace zntopo::detail
