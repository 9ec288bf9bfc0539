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
  const char* const plural = what.ends_with('s') ? "es" : "s";
  return std::to_string(number) + " " + what + (number == 1 ? "" : plural);
}

void TextTable::add(std::vector<std::string> row) {
  for (std::string& cell : row) cell = printable(cell);
  rows_.push_back(std::move(row));
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
      line += row[i] + std::string(widths[i] - width(row[i]) + 2, ' ');
    }
    line.resize(line.find_last_not_of(' ') + 1);
    result += line + "\n";
  }
  return result;
}

std::string columnsText(const std::vector<TextColumn>& columns) {
  std::vector<const TextColumn*> shown;
  std::vector<std::string> heads;
  for (const TextColumn& column : columns) {
    const auto isNothing = [](const std::string& cell) { return cell == "-"; };
    if (column.isRare && std::all_of(column.cells.begin(), column.cells.end(), isNothing)) continue;
    shown.push_back(&column);
    heads.push_back(column.head);
  }
  TextTable table(heads);
  const std::size_t size = shown.empty() ? 0 : shown.front()->cells.size();
  for (std::size_t i = 0; i < size; ++i) {
    std::vector<std::string> row;
    for (const TextColumn* column : shown) row.push_back(column->cells[i]);
    table.add(std::move(row));
  }
  return table.text();
}

}  // namespace zntopo::tools
