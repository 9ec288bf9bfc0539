#include "zntopo/model/IPv4Bytes.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "zntopo/model/IPv4Octet.h"

namespace zntopo {

IPv4Bytes::IPv4Bytes(const IPv4DecimalStr& text) {
  const std::string dotted = text.data();
  if (dotted.empty()) return;
  std::size_t start = 0;
  for (int i = 0; i < kBYTELEN; ++i) {
    const std::size_t dot = i < kBYTELEN - 1 ? dotted.find('.', start) : dotted.size();
    if (dot == std::string::npos) return;
    const std::string field = dotted.substr(start, dot - start);
    _bytes[i] = static_cast<unsigned char>(std::strtol(field.c_str(), nullptr, 10));
    start = dot + 1;
  }
}

void IPv4Bytes::setPrefixLen(int prefixLen) {
  std::fill(std::begin(_bytes), std::end(_bytes), static_cast<unsigned char>(0));
  if (prefixLen < 1 || prefixLen > 8 * kBYTELEN) return;
  for (int i = 0; i < kBYTELEN; ++i) _bytes[i] = IPv4Octet(prefixLen - 8 * i);
}

}  // namespace zntopo
