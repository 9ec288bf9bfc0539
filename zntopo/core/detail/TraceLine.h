#pragma once

#include <source_location>
#include <string>
#include <string_view>
#include <type_traits>

#include "zntopo/core/Trace.h"

namespace zntopo::detail {

/// The name of a source file as the trace quotes it: "../ZNTopoCache".
inline std::string tracedFile(std::string_view path) {
  path.remove_prefix(path.rfind('/') + 1);
  return "../" + std::string(path.substr(0, path.rfind('.')));
}

/// Traces a text, or what a function gives for one, which is only called if somebody listens.
template <typename Text>
void traceLine(int category, const Text& text,
               const std::source_location& place = std::source_location::current()) {
  const TvXplTrc::TraceObj_t& trace = topoSvcProcObj;
  if (!trace.IsActive(category)) return;
  std::string line;
  if constexpr (std::is_invocable_v<const Text&>) {
    line = text();
  } else {
    line = text;
  }
  trace.DoTrace(category, line.c_str(), tracedFile(place.file_name()).c_str(),
                static_cast<int>(place.line()));
}

}  // namespace zntopo::detail
