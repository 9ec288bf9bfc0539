#pragma once

#include <optional>
#include <string_view>

#include "zntopo/core/LogFunction.h"
#include "zntopo/core/Trace.h"

namespace zntopo::detail {

/// The name of an operation, and the place of its scope as the trace quotes it: the source file
/// with neither its folder nor its extension, "../ZNTopoAPI_Node".
struct TracedBlock {
  // Converts from the name alone, so that the place is that of the scope. Made by the compiler:
  // the folders of a build do not come into the library.
  consteval TracedBlock(const char* blockName,  // NOLINT(google-explicit-constructor)
                        std::string_view path = __builtin_FILE(), int blockLine = __builtin_LINE())
      : name(blockName), line(blockLine) {
    path.remove_prefix(path.rfind('/') + 1);
    path.substr(0, path.rfind('.')).copy(file + 3, sizeof file - 4);
  }

  const char* name;
  int line;
  char file[52] = "../";
};

/// What every query opens with: the entry and exit of an operation in the log and in the trace.
class OperationScope {
 public:
  explicit OperationScope(const TracedBlock& block) : log_(LogFunction::Lasting{block.name}) {
    const TvXplTrc::TraceObj_t& trace = topoSvcProcObj;
    if (trace.IsActive(kTraceCategory)) trace_.emplace(block);
  }

 private:
  static constexpr int kTraceCategory = 9;

  /// The block is kept for the trace that quotes it.
  struct Traced {
    explicit Traced(const TracedBlock& traced)
        : block(traced),
          trace(topoSvcProcObj, block.name, kTraceCategory, block.file, block.line) {}
    const TracedBlock block;
    const TvXplTrc::BlockTrace_t trace;
  };

  LogFunction log_;
  std::optional<Traced> trace_;
};

}  // namespace zntopo::detail
