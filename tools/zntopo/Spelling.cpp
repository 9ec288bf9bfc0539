#include "tools/zntopo/Spelling.h"

#include <algorithm>
#include <numeric>

#include "tools/network/PlainText.h"

namespace zntopo::tools {

namespace {

/// The least number of letters to change, add or leave out to turn one word into another.
std::size_t distance(const std::string& from, const std::string& to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), 0);
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < to.size(); ++j) {
      const std::size_t changed = diagonal + (from[i] == to[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string nearest(const std::string& word, const std::vector<std::string>& names) {
  std::string result;
  // Beyond a third of its letters another word is meant.
  std::size_t least = word.size() / 3 + 1;
  for (const std::string& name : names) {
    const std::size_t steps = distance(word, name);
    if (steps < least || (steps == least && result.empty())) {
      least = steps;
      result = name;
    }
  }
  return result;
}

std::string shellWord(const std::string& text) {
  constexpr const char* special = " \t\n\"'\\$`!*?[](){}<>|&;#~";
  if (!text.empty() && text.find_first_of(special) == std::string::npos) return printable(text);
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string{c};
  return printable(quoted + "'");
}

}  // namespace zntopo::tools
