#include "zntopo/core/LogFunction.h"

#include <cstring>

#include "zntopo/core/MCLog.h"

namespace zntopo {

LogFunction::LogFunction(const char* name) {
  keep(name ? name : "");
  enter();
}

LogFunction::LogFunction(const std::string& name) {
  keep(name.c_str());
  enter();
}

LogFunction::LogFunction(Lasting lasting) : myName(lasting.name) { enter(); }

void LogFunction::keep(const char* name) {
  // The name is kept even if nobody hears the entry: the level may change before the exit.
  const std::size_t size = std::strlen(name) + 1;
  char* kept = short_;
  if (size > sizeof short_) {
    long_ = std::make_unique<char[]>(size);
    kept = long_.get();
  }
  std::memcpy(kept, name, size);
  myName = kept;
}

void LogFunction::enter() { MCLog::log(MC_INFO, "+%s\n", myName); }

LogFunction::~LogFunction() { MCLog::log(MC_INFO, "-%s\n", myName); }

}  // namespace zntopo
