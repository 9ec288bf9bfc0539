#pragma once

#include <cstddef>
#include <string>
#include <utility>

/// @file
/// The platform's arrays.

namespace TvXplArray {

/// An array of characters of its own, with a NUL behind it.
class CharArray_t {
 public:
  CharArray_t() = default;
  explicit CharArray_t(std::string characters) : characters_(std::move(characters)) {}

  const char* GetData() const { return characters_.c_str(); }
  std::size_t GetLength() const { return characters_.size(); }

 private:
  std::string characters_;
};

}  // namespace TvXplArray
