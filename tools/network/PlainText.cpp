#include "tools/network/PlainText.h"

#include <algorithm>
#include <string_view>

#include "zntopo/platform/tvxpl/Utf8.h"

namespace zntopo::tools {

namespace {

/// The code point of a well-formed UTF-8 character.
char32_t codePoint(std::string_view character) {
  const auto first = static_cast<unsigned char>(character[0]);
  if (character.size() == 1) return first;
  char32_t result = first & (0x7fu >> character.size());
  for (const char c : character.substr(1))
    result = result << 6 | (static_cast<unsigned char>(c) & 0x3f);
  return result;
}

struct Range {
  char32_t first;
  char32_t last;
};

/// Control characters, line and paragraph separators, and what turns the direction of writing.
constexpr Range kUnprintable[] = {{0x00, 0x1f},     {0x7f, 0x9f},     {0x61c, 0x61c},
                                  {0x200e, 0x200f}, {0x2028, 0x202e}, {0x2066, 0x2069}};

bool isPrintable(char32_t c) {
  return std::none_of(std::begin(kUnprintable), std::end(kUnprintable),
                      [c](const Range& range) { return range.first <= c && c <= range.last; });
}

std::string replaced(std::string_view text, bool keepsLines) {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = TvXplStr::sequenceLength(text);
    const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
    text.remove_prefix(character.size());
    const bool isLineEnd = keepsLines && character[0] == '\n';
    if (length > 0 && (isLineEnd || isPrintable(codePoint(character)))) {
      result += character;
    } else {
      result += '?';
    }
  }
  return result;
}

}  // namespace

std::string printable(const std::string& text) { return replaced(text, false); }

std::string printableLines(const std::string& text) { return replaced(text, true); }

std::string nameFault(const std::string& name, std::size_t width) {
  if (name.empty()) return "is empty";
  if (name.size() > width) return "is longer than " + std::to_string(width) + " bytes";
  if (!TvXplStr::isUtf8(name)) return "is not UTF-8";
  if (std::any_of(name.begin(), name.end(), isControl)) return "has a control character in it";
  return "";
}

}  // namespace zntopo::tools
