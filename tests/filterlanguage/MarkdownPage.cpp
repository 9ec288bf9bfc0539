#include "tests/filterlanguage/MarkdownPage.h"

#include "tests/support/Scratch.h"

namespace zntopo::test {

namespace {

std::string trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(' ');
  if (begin == std::string::npos) return "";
  return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

std::vector<std::string> cellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::size_t at = 1;
  while (at < line.size()) {
    const std::size_t end = line.find('|', at);
    std::string cell = trimmed(line.substr(at, end - at));
    const bool isCode = cell.size() > 1 && cell.front() == '`' && cell.back() == '`' &&
                        cell.find('`', 1) == cell.size() - 1;
    cells.push_back(isCode ? cell.substr(1, cell.size() - 2) : cell);
    at = end == std::string::npos ? line.size() : end + 1;
  }
  return cells;
}

}  // namespace

MarkdownPage::MarkdownPage(const std::string& path) : lines_(linesOf(contentOf(path))) {}

std::vector<std::string> MarkdownPage::fences(const std::string& language) const {
  std::vector<std::string> result;
  bool isInside = false;
  for (const std::string& line : lines_) {
    if (isInside && line == "```") {
      isInside = false;
    } else if (isInside) {
      result.back() += line + "\n";
    } else if (line == "```" + language) {
      isInside = true;
      result.emplace_back();
    }
  }
  return result;
}

std::vector<std::vector<std::string>> MarkdownPage::table(const std::string& heading) const {
  std::vector<std::vector<std::string>> result;
  bool isBelow = false;
  int head = 0;
  for (const std::string& line : lines_) {
    if (line.rfind('#', 0) == 0) isBelow = line == heading;
    const bool isRow = line.rfind('|', 0) == 0;
    head = isRow ? head + 1 : 0;
    if (isBelow && isRow && head > 2) result.push_back(cellsOf(line));
  }
  return result;
}

}  // namespace zntopo::test
