#pragma once

#include <cstddef>
#include <set>
#include <string>

#include "tools/network/PlainText.h"

namespace zntopo::tools {

/// A text without control characters and other bytes than those of UTF-8, cut to a width in bytes:
/// each of the former is a blank, each of the latter a U+FFFD.
std::string plainText(const std::string& text, std::size_t width);

/// Gives the objects of one list of a file names that tell them apart.
class UniqueNames {
 public:
  explicit UniqueNames(std::size_t width = kNameWidth) : width_(width) {}

  /// The name as it is told if nobody has it; else the identifier; else the name with a number.
  /// Never empty.
  std::string take(const std::string& name, const std::string& id = "");

 private:
  std::size_t width_;
  std::set<std::string> taken_;
};

}  // namespace zntopo::tools
