#include "zntopo/filter/TrimUnneededWhiteSpace.h"

#include "zntopo/core/Trace.h"
#include "zntopo/filter/detail/FilterTrace.h"

namespace zntopo {

namespace {

// Works on a text of its own: there is no shared space that would bound a text, or that two
// threads could write to.
std::string trimmed(const std::string& text) {
  std::string result;
  result.reserve(text.size());
  bool inDouble = false;
  bool inSingle = false;
  bool wasBlank = false;
  for (const char c : text) {
    const bool isSpace = c == '\t' || c == '\n' || c == ' ';
    if (isSpace && (inDouble || inSingle)) {
      result += c;
    } else if (isSpace) {
      if (c != ' ' || wasBlank) continue;
      result += c;
      wasBlank = true;
    } else {
      inDouble ^= c == '"';
      inSingle ^= c == '\'';
      result += c;
      wasBlank = false;
    }
  }
  return result;
}

}  // namespace

std::string TrimUnneededWhiteSpace(const std::string& text) {
  std::string result = trimmed(text);
  detail::traceFilter(detail::kTraceDetail, [&] {
    return "TrimUnneededWhiteSpace trimmed [" + text + "] to [" + result + "]";
  });
  return result;
}

}  // namespace zntopo
