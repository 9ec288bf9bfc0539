#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>

/// @file
/// The rows of the dump tool's tables.

namespace zntopo::detail {

/// How a row is laid out: blanks in front, and how wide each column is at least. Two blanks stand
/// between columns, and nothing is cut.
struct TableLayout {
  int indent;
  std::array<int, 6> widths;

  /// A row of as many columns as there are cells, at most six. A cell ends at a NUL.
  std::string row(std::span<const std::string> cells) const {
    std::string text(static_cast<std::size_t>(indent), ' ');
    for (std::size_t i = 0; i < cells.size() && i < widths.size(); ++i) {
      std::string cell = cells[i].c_str();
      if (cell.size() < static_cast<std::size_t>(widths[i])) cell.resize(widths[i], ' ');
      text += (i == 0 ? "" : "  ") + cell;
    }
    return text + "\n";
  }
};

// A node and the header above it differ in the last column.
inline constexpr TableLayout kNodeHeader{2, {35, 8, 30, 15, 8, 4}};
inline constexpr TableLayout kNodeRow{2, {35, 8, 30, 15, 8, 5}};
inline constexpr TableLayout kInterfaceRow{4, {33, 8, 30, 15, 8, 5}};

/// What stands in a column that has nothing to tell.
inline constexpr const char* kNoCell = "-";

}  // namespace zntopo::detail
