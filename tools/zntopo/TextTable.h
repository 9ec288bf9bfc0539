#pragma once

#include <string>
#include <vector>

namespace zntopo::tools {

/// Lines of columns for people, each column as wide as its widest entry.
class TextTable {
 public:
  explicit TextTable(std::vector<std::string> heads) { rows_.push_back(std::move(heads)); }

  void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
  /// The number of rows without the heads.
  std::size_t size() const { return rows_.size() - 1; }
  std::string text() const;

 private:
  std::vector<std::vector<std::string>> rows_;
};

/// "1 node", "2 nodes".
std::string counted(std::size_t number, const std::string& what);

}  // namespace zntopo::tools
