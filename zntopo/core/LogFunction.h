#pragma once

#include <memory>
#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// Logs the entry to and the exit from a scope at MC_INFO: "+name\n" and "-name\n".
///
/// Each end asks for itself whether the line is heard, so a level that is lowered within the
/// scope shows the exit alone. A name of up to 95 characters costs no allocation.
class ZNTOPO_EXPORT LogFunction {
 public:
  explicit LogFunction(const char* name);
  explicit LogFunction(const std::string& name);
  /// A name that outlives the scope, as a literal does: it is not copied.
  struct Lasting {
    const char* name;
  };
  explicit LogFunction(Lasting lasting);
  ~LogFunction();
  LogFunction(const LogFunction&) = delete;
  LogFunction& operator=(const LogFunction&) = delete;

 private:
  void keep(const char* name);
  void enter();

  const char* myName;
  std::unique_ptr<char[]> long_;
  char short_[96];
};

}  // namespace zntopo
