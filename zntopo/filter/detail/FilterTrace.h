#pragma once

#include <source_location>
#include <string>

#include "zntopo/core/Trace.h"

namespace zntopo::detail {

/// The trace's categories that the filters use.
inline constexpr int kTraceFailure = 4;
inline constexpr int kTraceStep = 9;
inline constexpr int kTraceStart = 12;
inline constexpr int kTraceDetail = 25;

/// Traces what `text` gives, which is only called if somebody listens.
template <typename Text>
void traceFilter(int category, const Text& text,
                 const std::source_location& place = std::source_location::current()) {
  const TvXplTrc::TraceObj_t& trace = topoSvcProcObj;
  if (!trace.IsActive(category)) return;
  trace.DoTrace(category, std::string(text()).c_str(), place.file_name(),
                static_cast<int>(place.line()));
}

}  // namespace zntopo::detail
