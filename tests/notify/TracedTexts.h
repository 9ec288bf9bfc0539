#pragma once

#include <string>
#include <vector>

#include "tests/support/Scratch.h"

namespace zntopo::test {

/// The texts of a trace without what stands before them: time, process, thread, name, place.
inline std::vector<std::string> tracedTexts(const std::string& trace, int category) {
  std::vector<std::string> texts;
  const std::string mark = " QRMRZTopology " + std::to_string(category) + " ../";
  for (const std::string& line : linesOf(trace)) {
    const std::size_t at = line.find(mark);
    if (at == std::string::npos) continue;
    texts.push_back(line.substr(line.find(' ', at + mark.size()) + 1));
  }
  return texts;
}

}  // namespace zntopo::test
