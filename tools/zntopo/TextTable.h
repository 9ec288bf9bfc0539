#pragma once

#include <string>
#include <vector>

namespace zntopo::tools {

/// Lines of columns for people, each column as wide as its widest entry.
class TextTable {
 public:
  /// Without heads all lines are rows.
  TextTable() = default;
  explicit TextTable(std::vector<std::string> heads) : heads_(1) {
    rows_.push_back(std::move(heads));
  }

  /// What is not printable is replaced.
  void add(std::vector<std::string> row);
  /// The number of rows without the heads.
  std::size_t size() const { return rows_.size() - heads_; }
  std::string text() const;

 private:
  std::size_t heads_ = 0;
  std::vector<std::vector<std::string>> rows_;
};

/// A column by itself.
struct TextColumn {
  std::string head;
  /// Left out if each cell is "-".
  bool isRare = false;
  std::vector<std::string> cells = {};
};

/// A table of columns of one length.
std::string columnsText(const std::vector<TextColumn>& columns);

/// "1 node", "2 nodes", "2 addresses".
std::string counted(std::size_t number, const std::string& what);

}  // namespace zntopo::tools
