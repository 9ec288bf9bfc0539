#include "tools/zntopo/TextTable.h"

#include <algorithm>

#include "tools/network/PlainText.h"

namespace zntopo::tools {

namespace {

/// The number of UTF-8 characters.
std::size_t width(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xc0) != 0x80;
  }));
}

}  // namespace

std::string counted(std::size_t number, const std::string& what) {
  return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

std::string TextTable::text() const {
  std::vector<std::size_t> widths;
  for (const auto& row : rows_) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], width(row[i]));
  }
  std::string result;
  for (const auto& row : rows_) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += printable(row[i]) + std::string(widths[i] - width(row[i]) + 2, ' ');
    }
    line.resize(line.find_last_not_of(' ') + 1);
    result += line + "\n";
  }
  return result;
}

}  // namespace zntopo::tools
