#include "tools/network/PlainText.h"

#include <algorithm>

namespace zntopo::tools {

std::string printable(const std::string& text) {
  std::string result = text;
  std::replace_if(result.begin(), result.end(), isControl, '?');
  return result;
}

std::string printableLines(const std::string& text) {
  std::string result = text;
  const auto isBad = [](unsigned char c) { return c != '\n' && isControl(c); };
  std::replace_if(result.begin(), result.end(), isBad, '?');
  return result;
}

}  // namespace zntopo::tools
