#pragma once

#include <string>
#include <vector>

namespace zntopo::test {

/// A page of the documentation.
class MarkdownPage {
 public:
  explicit MarkdownPage(const std::string& path);

  /// What is in its fences of a language.
  std::vector<std::string> fences(const std::string& language) const;
  /// The cells of the tables below a heading, without the heads of the tables and without the
  /// backquotes around a cell.
  std::vector<std::vector<std::string>> table(const std::string& heading) const;

 private:
  std::vector<std::string> lines_;
};

}  // namespace zntopo::test
