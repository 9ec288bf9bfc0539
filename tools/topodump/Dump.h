#pragma once

#include "tools/topodump/DumpCall.h"
#include "zntopo/api/ZNTopoAPI.h"

namespace zntopo::tools {

/// Exit statuses of the dump tool.
enum DumpStatus : int { DumpPrinted = 0, DumpFailed = 1, DumpWrongCall = 2 };

/// Prints what a call asks for: rows, or full texts where TOPODUMP_DETAIL is set. Objects come by
/// name, the text forms on standard output, and errors on standard error.
DumpStatus dump(ZNTopoAPI& api, const DumpCall& call);

/// Tells that there is nothing to print: an error, or that nothing was found.
DumpStatus tellNothing(ZNTopoAPIStatus& status);

}  // namespace zntopo::tools
