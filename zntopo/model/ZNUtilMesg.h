#pragma once

#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// What the dump tool prints besides objects. The texts come from the message catalogue.
///
/// Holds no state: any thread may call it, and what threads print at once may mingle.
class ZNTOPO_EXPORT ZNUtilMesg {
 public:
  /// The header of a table of nodes, to standard output.
  static void printTopoQueryNodeDisplayHeader();
  /// To standard output.
  static void printTopoQueryNotFoundMessage();
  /// The message and the auxiliary text of a status in three lines, to standard error.
  static void logTopoQueryErrorMessage(ZNTopoAPIStatus& theStatus);
  /// The usage of the dump tool, to standard output.
  static void printTopoQueryHelp();

 private:
  ZNUtilMesg() = default;
};

}  // namespace zntopo
