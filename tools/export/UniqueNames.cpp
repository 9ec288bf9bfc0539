#include "tools/export/UniqueNames.h"

#include "tools/network/StoreRows.h"
#include "zntopo/platform/tvxpl/Utf8.h"

namespace zntopo::tools {

std::string plainText(const std::string& text, std::size_t width) {
  std::string result;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t length = TvXplStr::sequenceLength(rest);
    const bool isBlank = length == 1 && isControl(static_cast<unsigned char>(rest.front()));
    result += length == 0 ? "\xef\xbf\xbd" : isBlank ? " " : rest.substr(0, length);
    rest.remove_prefix(length == 0 ? 1 : length);
  }
  return cutText(result, width);
}

std::string UniqueNames::take(const std::string& name, const std::string& id) {
  const std::string wanted = plainText(name, width_);
  for (const std::string& one : {wanted, id}) {
    if (!one.empty() && taken_.insert(one).second) return one;
  }
  // Room for a number of any size.
  constexpr std::size_t kNumberWidth = 24;
  const std::string base = cutText(wanted, width_ - kNumberWidth);
  for (std::size_t number = 2;; ++number) {
    const std::string one = base + " (" + std::to_string(number) + ")";
    if (taken_.insert(one).second) return one;
  }
}

}  // namespace zntopo::tools
