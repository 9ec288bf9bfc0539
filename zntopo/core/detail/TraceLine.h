#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "zntopo/core/Trace.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo::detail {

/// A category of the trace, and the place that the trace quotes: that of the call.
struct TracedCategory {
  consteval TracedCategory(int category,  // NOLINT(google-explicit-constructor)
                           std::string_view path = __builtin_FILE(), int line = __builtin_LINE())
      : number(category), place("", path, line) {}

  int number;
  TracedBlock place;
};

/// Traces a text, or what a function gives for one, which is only called if somebody listens.
template <typename Text>
void traceLine(const TracedCategory& category, const Text& text) {
  const TvXplTrc::TraceObj_t& trace = topoSvcProcObj;
  if (!trace.IsActive(category.number)) return;
  std::string line;
  if constexpr (std::is_invocable_v<const Text&>) {
    line = text();
  } else {
    line = text;
  }
  trace.DoTrace(category.number, line.c_str(), category.place.file, category.place.line);
}

}  // namespace zntopo::detail
