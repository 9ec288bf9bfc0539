#include "zntopo/core/LogFunction.h"

#include <cstring>

#include "zntopo/core/MCLog.h"

namespace zntopo {

LogFunction::LogFunction(const char* name) { enter(name ? name : ""); }

LogFunction::LogFunction(const std::string& name) { enter(name.c_str()); }

void LogFunction::enter(const char* name) {
  // The name is kept even if nobody hears the entry: the level may change before the exit.
  const std::size_t size = std::strlen(name) + 1;
  char* kept = short_;
  if (size > sizeof short_) {
    long_ = std::make_unique<char[]>(size);
    kept = long_.get();
  }
  std::memcpy(kept, name, size);
  myName = kept;
  MCLog::log(MC_INFO, "+%s\n", myName);
}

LogFunction::~LogFunction() { MCLog::log(MC_INFO, "-%s\n", myName); }

}  // namespace zntopo
