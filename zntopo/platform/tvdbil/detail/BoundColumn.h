#pragma once

#include <cstddef>
#include <string_view>

#include "zntopo/platform/tvdbil/TvDbil.h"

/// @file
/// What a fetch does to the caller's variables: written once, so that the drivers can't differ.

namespace TvDbil::detail {

/// A result column and the caller's variables for it.
struct BoundColumn {
  enum Kind : int { Text, Int, Float };
  Kind kind;
  void* target;
  int size;        ///< of the buffer, for Text
  int* indicator;  ///< may be null
};

/// Each of these stores one value. DBIL_SUCCESS_WITH_INFO: it did not fit, and was cut (text) or
/// is the nearest value that fits (numbers).
DbilReturnCode storeNull(const BoundColumn& column);
DbilReturnCode storeInteger(const BoundColumn& column, long long value);
DbilReturnCode storeReal(const BoundColumn& column, double value);
/// Into a number: the number that the text begins with, 0 and "with info" if there is none.
DbilReturnCode storeText(const BoundColumn& column, std::string_view value);
/// For a text that the driver has put into the buffer itself, cut and terminated.
DbilReturnCode settleText(const BoundColumn& column, std::size_t fullLength);

}  // namespace TvDbil::detail
