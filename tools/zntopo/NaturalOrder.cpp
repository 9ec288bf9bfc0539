#include "tools/zntopo/NaturalOrder.h"

#include <cstring>

namespace zntopo::tools {

std::strong_ordering operator<=>(const Natural& left, const Natural& right) {
  const int natural = strverscmp(left.text.c_str(), right.text.c_str());
  // Texts that agree up to a NUL are told apart by what follows.
  return natural != 0 ? natural <=> 0 : left.text <=> right.text;
}

}  // namespace zntopo::tools
