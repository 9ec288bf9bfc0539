#include "zntopo/platform/tvdbil/detail/BoundColumn.h"

#include <locale.h>
#include <stdlib.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

namespace TvDbil::detail {
namespace {

void setIndicator(const BoundColumn& column, std::size_t length) {
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<int>::max());
  if (column.indicator != nullptr) *column.indicator = static_cast<int>(std::min(length, kMost));
}

DbilReturnCode withInfo(bool exact) { return exact ? DBIL_SUCCESS : DBIL_SUCCESS_WITH_INFO; }

/// Number is the type of the variable, Wide the one that the value came in.
template <typename Number, typename Wide>
DbilReturnCode setNumber(const BoundColumn& column, Wide value) {
  constexpr auto kLow = static_cast<Wide>(std::numeric_limits<Number>::lowest());
  constexpr auto kHigh = static_cast<Wide>(std::numeric_limits<Number>::max());
  const Wide fitting = std::clamp(value, kLow, kHigh);
  *static_cast<Number*>(column.target) = static_cast<Number>(fitting);
  setIndicator(column, sizeof(Number));
  return withInfo(fitting == value);
}

/// The double nearest to a number that is beyond all of them, or below the smallest.
double nearestReal(const std::string& digits) {
  static const locale_t kNoLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  constexpr double kMost = std::numeric_limits<double>::max();
  return std::clamp(strtod_l(digits.c_str(), nullptr, kNoLocale), -kMost, kMost);
}

DbilReturnCode storeNumberText(const BoundColumn& column, std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\r+"), text.size()));
  const char* end = text.data() + text.size();
  long long integer = 0;
  const auto whole = std::from_chars(text.data(), end, integer);
  if (whole.ec == std::errc() && whole.ptr == end) return storeInteger(column, integer);
  double real = 0;
  const auto parsed = std::from_chars(text.data(), end, real);
  if (parsed.ec == std::errc::result_out_of_range) {
    // Too small for a double is nothing; too large is as far as it goes.
    real = nearestReal(std::string(text.data(), parsed.ptr));
  }
  const DbilReturnCode code = storeReal(column, real);
  return parsed.ec == std::errc() && parsed.ptr == end ? code : DBIL_SUCCESS_WITH_INFO;
}

}  // namespace

DbilReturnCode storeNull(const BoundColumn& column) {
  const std::size_t size = column.kind == BoundColumn::Text  ? static_cast<std::size_t>(column.size)
                           : column.kind == BoundColumn::Int ? sizeof(int)
                                                             : sizeof(float);
  std::memset(column.target, 0, size);
  if (column.indicator != nullptr) *column.indicator = -1;
  return DBIL_SUCCESS;
}

DbilReturnCode storeInteger(const BoundColumn& column, long long value) {
  switch (column.kind) {
    case BoundColumn::Int:
      return setNumber<int>(column, value);
    case BoundColumn::Float:
      return setNumber<float>(column, static_cast<double>(value));
    default:
      return storeText(column, std::to_string(value));
  }
}

DbilReturnCode storeReal(const BoundColumn& column, double value) {
  switch (column.kind) {
    case BoundColumn::Int:
      if (std::isnan(value)) value = 0;
      return setNumber<int>(column, std::trunc(value));
    case BoundColumn::Float:
      if (std::isfinite(value)) return setNumber<float>(column, value);
      *static_cast<float*>(column.target) = static_cast<float>(value);
      setIndicator(column, sizeof(float));
      return DBIL_SUCCESS;
    default: {
      char digits[64];
      const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
      return storeText(column, std::string_view(digits, static_cast<std::size_t>(end - digits)));
    }
  }
}

DbilReturnCode storeText(const BoundColumn& column, std::string_view value) {
  if (column.kind != BoundColumn::Text) return storeNumberText(column, value);
  const std::size_t kept = std::min(value.size(), static_cast<std::size_t>(column.size) - 1);
  char* buffer = static_cast<char*>(column.target);
  if (kept > 0) std::memcpy(buffer, value.data(), kept);
  buffer[kept] = '\0';
  return settleText(column, value.size());
}

DbilReturnCode settleText(const BoundColumn& column, std::size_t fullLength) {
  setIndicator(column, fullLength);
  return withInfo(fullLength < static_cast<std::size_t>(column.size));
}

}  // namespace TvDbil::detail
