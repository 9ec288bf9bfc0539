#pragma once

#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// Logs the entry to and the exit from a scope at MC_INFO: "+name\n" and "-name\n".
class ZNTOPO_EXPORT LogFunction {
 public:
  explicit LogFunction(const char* name);
  explicit LogFunction(const std::string& name);
  ~LogFunction();
  LogFunction(const LogFunction&) = delete;
  LogFunction& operator=(const LogFunction&) = delete;
};

}  // namespace zntopo
