#include "tools/zntopo/Progress.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "tools/network/PlainText.h"

namespace zntopo::tools {

Progress::Progress(const std::string& label)
    : label_(printable(label)), isTerminal_(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
  if (shown_ >= 0) std::fputs("\r\033[K", stderr);
}

void Progress::show(double part) {
  if (!isTerminal_) return;
  constexpr int kWidth = 30;
  const int percent = std::clamp(static_cast<int>(part * 100), 0, 100);
  if (percent == shown_) return;
  shown_ = percent;
  const int full = percent * kWidth / 100;
  std::fprintf(stderr, "\r\033[K%s [%s%s] %d%%", label_.c_str(), std::string(full, '#').c_str(),
               std::string(kWidth - full, '.').c_str(), percent);
  std::fflush(stderr);
}

}  // namespace zntopo::tools
