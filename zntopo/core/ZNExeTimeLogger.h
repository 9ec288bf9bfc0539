#pragma once

#include <sys/time.h>

#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// Writes how long one scope took into a file of its own, "<name>-<process id>.dat".
///
/// It does so only if the file /tmp/ExeTimeLoggerStart was there when InitLogger() was called,
/// else it does nothing at all. The first object to end closes the file for good, so it is fit
/// for one object in a process. It has no lock: it is for one thread.
class ZNTOPO_EXPORT ZNExeTimeLogger {
 public:
  /// Looks for the marker file and keeps the name.
  static void InitLogger(const std::string& name);

  explicit ZNExeTimeLogger(const std::string& funcName);
  ~ZNExeTimeLogger();
  ZNExeTimeLogger(const ZNExeTimeLogger&) = delete;
  ZNExeTimeLogger& operator=(const ZNExeTimeLogger&) = delete;

 private:
  std::string _funcName;
  timeval first{};
  timeval second{};
  timeval lapsed{};
};

}  // namespace zntopo
