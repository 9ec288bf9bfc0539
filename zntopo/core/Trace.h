#pragma once

#include "zntopo/platform/tvxpl/TvXplTrc.h"

/// @file
/// What this library traces under.

namespace zntopo {

/// The calls of the query operations.
extern const TvXplTrc::TraceWrapper_t topoSvcProcObj;
/// Every log line.
extern const TvXplTrc::TraceWrapper_t topoSvcOperationObj;

}  // namespace zntopo
