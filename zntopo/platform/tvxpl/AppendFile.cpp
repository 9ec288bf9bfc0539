#include "zntopo/platform/tvxpl/detail/AppendFile.h"

#include <fcntl.h>
#include <sys/time.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace tvxpl {

namespace {

std::string timeAndProcess() {
  timeval now{};
  gettimeofday(&now, nullptr);
  std::tm local{};
  localtime_r(&now.tv_sec, &local);
  char day[32];
  std::strftime(day, sizeof day, "%Y-%m-%d %H:%M:%S", &local);
  char prefix[96];
  std::snprintf(prefix, sizeof prefix, "%s.%06ld %ld ", day, static_cast<long>(now.tv_usec),
                static_cast<long>(getpid()));
  return prefix;
}

}  // namespace

AppendFile::AppendFile(const char* variable) {
  const char* const name = std::getenv(variable);
  if (name && *name) descriptor_ = open(name, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
}

void AppendFile::writeLine(std::string_view text) const {
  std::string line = timeAndProcess();
  for (const char c : withoutLineEnd(text)) {
    if (c == '\n') {
      line += "\\n";
    } else {
      line += c;
    }
  }
  line += '\n';
  // One call a line: lines of several threads and processes do not mix. Nobody can be told of a
  // failure.
  [[maybe_unused]] const ssize_t written = write(descriptor_, line.data(), line.size());
}

std::string_view withoutLineEnd(std::string_view text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
  return text;
}

}  // namespace tvxpl
