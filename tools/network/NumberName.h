#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace zntopo::tools {

/// A name, as users and files have it, of what the store or the library has a number for.
template <typename Number = int>
struct NumberName {
  const char* name;
  Number number;
};

/// What a number is called in a list of NumberName; nothing if it has no name.
template <typename Names, typename Number>
constexpr std::optional<std::string_view> nameOf(const Names& names, Number number) {
  for (const auto& one : names) {
    if (one.number == number) return one.name;
  }
  return std::nullopt;
}

/// The number of a name; nothing if it is none of them.
constexpr std::optional<int> numberOf(std::span<const NumberName<>> names, std::string_view name) {
  for (const NumberName<>& one : names) {
    if (name == one.name) return one.number;
  }
  return std::nullopt;
}

}  // namespace zntopo::tools
