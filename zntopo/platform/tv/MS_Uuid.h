#pragma once

#include <cstddef>
#include <cstdint>

#include "zntopo/platform/Export.h"

/// A universally unique identifier: a value of 16 bytes, written as 36 characters in lower case.
class ZNTOPO_EXPORT MS_Uuid {
 public:
  /// The length of the text form and its terminator.
  static constexpr std::size_t kTextSize = 37;

  /// All zero.
  MS_Uuid() = default;
  /// From the 36-character text. A character that is no hexadecimal digit counts as 0, and the
  /// four dash positions (8, 13, 18, 23) are passed over whatever stands there.
  explicit MS_Uuid(const char* text);

  /// Writes the text form into a buffer of at least kTextSize characters and returns it.
  char* as_asciiz(char* buffer) const;
  /// A hash over all 16 bytes.
  unsigned long hash() const;

  friend bool operator==(const MS_Uuid& left, const MS_Uuid& right) {
    return left.high_ == right.high_ && left.low_ == right.low_;
  }
  /// The order of the 16 bytes, which is that of the text forms.
  friend bool operator<(const MS_Uuid& left, const MS_Uuid& right) {
    return left.high_ != right.high_ ? left.high_ < right.high_ : left.low_ < right.low_;
  }

 private:
  std::uint64_t high_ = 0;
  std::uint64_t low_ = 0;
};
