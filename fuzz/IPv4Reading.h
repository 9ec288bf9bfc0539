#pragma once

#include <algorithm>
#include <array>
#include <limits>
#include <string>

/// @file
/// The dotted text of an IPv4 address, read another way than the library does.

namespace zntopo::fuzz {

using Octets = std::array<unsigned char, 4>;

/// The number that a field begins with, as far as 64 bits go, cut to 8 bits.
inline unsigned char octetOf(const std::string& field) {
  const std::string text = field.c_str();
  std::size_t at = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
  const bool isNegative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  const auto limit =
      static_cast<unsigned __int128>(std::numeric_limits<long>::max()) + (isNegative ? 1 : 0);
  unsigned __int128 value = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9' && value < limit; ++at) {
    value = 10 * value + static_cast<unsigned>(text[at] - '0');
  }
  value = std::min(value, limit);
  return static_cast<unsigned char>(isNegative ? -value : value);
}

/// A field counts only if a dot ends it; the fourth one reaches to the end of the text.
inline Octets octetsOf(const std::string& text) {
  Octets octets{};
  std::size_t begin = 0;
  for (std::size_t i = 0; i < octets.size(); ++i) {
    const std::size_t end = i == 3 ? text.size() : text.find('.', begin);
    if (text.empty() || end == std::string::npos) break;
    octets[i] = octetOf(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return octets;
}

/// The bits of a mask with so many leading ones; none outside 1 to 32.
inline unsigned maskBits(long length) {
  return length < 1 || length > 32 ? 0 : ~0U << (32 - length);
}

inline unsigned bitsOf(const Octets& octets) {
  return unsigned{octets[0]} << 24 | unsigned{octets[1]} << 16 | unsigned{octets[2]} << 8 |
         octets[3];
}

}  // namespace zntopo::fuzz
