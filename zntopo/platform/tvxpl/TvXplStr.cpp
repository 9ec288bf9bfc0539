#include "zntopo/platform/tvxpl/TvXplStr.h"

#include "zntopo/platform/tvxpl/Utf8.h"

namespace TvXplStr {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHigh(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLow(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void append(std::string& text, char32_t c) {
  const auto tail = [&](int shift) { text += static_cast<char>(0x80 | (c >> shift & 0x3F)); };
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0 | c >> 6);
    tail(0);
  } else if (c < 0x10000) {
    text += static_cast<char>(0xE0 | c >> 12);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0 | c >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

/// The character of a well-formed sequence.
char32_t decoded(std::string_view sequence) {
  if (sequence.size() == 1) return static_cast<unsigned char>(sequence[0]);
  char32_t c = static_cast<unsigned char>(sequence[0]) & (0x7FU >> sequence.size());
  for (const char next : sequence.substr(1)) c = c << 6 | (static_cast<unsigned char>(next) & 0x3F);
  return c;
}

}  // namespace

std::u16string widen(std::string_view narrow) {
  std::u16string wide;
  wide.reserve(narrow.size());
  while (!narrow.empty()) {
    const std::size_t length = sequenceLength(narrow);
    const char32_t c = length == 0 ? kReplacement : decoded(narrow.substr(0, length));
    narrow.remove_prefix(length == 0 ? 1 : length);
    if (c < 0x10000) {
      wide += static_cast<char16_t>(c);
    } else {
      wide += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
      wide += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
  }
  return wide;
}

std::string narrow(std::u16string_view wide) {
  std::string text;
  text.reserve(wide.size());
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char32_t c = wide[i];
    if (isHigh(wide[i]) && i + 1 < wide.size() && isLow(wide[i + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (wide[++i] - 0xDC00);
    } else if (isHigh(wide[i]) || isLow(wide[i])) {
      c = kReplacement;
    }
    append(text, c);
  }
  return text;
}

}  // namespace TvXplStr
