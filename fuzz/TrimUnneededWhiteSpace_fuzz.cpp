// Outside bytes as a condition: it is trimmed as another reading of the rule has it, once and for
// all.
#include "zntopo/filter/TrimUnneededWhiteSpace.h"

#include <algorithm>

#include "fuzz/Fuzz.h"

namespace {

/// Splits at quotes: of each piece it knows how many quotes of a kind stand in front of it.
std::string plainlyTrimmed(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto begin = text.begin();
    const auto here = begin + static_cast<std::ptrdiff_t>(i);
    const bool isQuoted =
        std::count(begin, here, '"') % 2 == 1 || std::count(begin, here, '\'') % 2 == 1;
    const bool isDropped = !isQuoted && (text[i] == '\t' || text[i] == '\n');
    // Whether the last character that was kept outside quotes is a blank, with none of another
    // kind behind it.
    bool followsBlank = false;
    for (std::size_t j = i; !isQuoted && text[i] == ' ' && j-- > 0;) {
      if (text[j] == '\t' || text[j] == '\n') continue;
      followsBlank = text[j] == ' ';
      break;
    }
    if (!isDropped && !followsBlank) result += text[i];
  }
  return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = zntopo::fuzz::textOf(data, size);
  const std::string trimmed = zntopo::TrimUnneededWhiteSpace(text);
  ZNTOPO_REQUIRE(trimmed == plainlyTrimmed(text));
  ZNTOPO_REQUIRE(zntopo::TrimUnneededWhiteSpace(trimmed) == trimmed);
  return 0;
}
