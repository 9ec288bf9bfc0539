#pragma once

#include <source_location>

#include "zntopo/core/LogFunction.h"
#include "zntopo/core/Trace.h"

namespace zntopo::detail {

/// What every query opens with: the entry and exit of an operation in the log and in the trace.
class OperationScope {
 public:
  explicit OperationScope(const char* name,
                          std::source_location place = std::source_location::current())
      : log_(name),
        trace_(topoSvcProcObj, name, kTraceCategory, place.file_name(),
               static_cast<int>(place.line())) {}

 private:
  static constexpr int kTraceCategory = 9;

  LogFunction log_;
  TvXplTrc::BlockTrace_t trace_;
};

}  // namespace zntopo::detail
