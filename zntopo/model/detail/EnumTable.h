#pragma once

#include <cstddef>
#include <string>

namespace zntopo::detail {

/// One enumerator and its text.
template <typename Enum>
struct EnumText {
  Enum value;
  const char* text;
};

/// The text of a value, or another one for a value that the table does not hold.
template <typename Enum, std::size_t size>
std::string textOf(const EnumText<Enum> (&table)[size], Enum value, const char* otherwise) {
  for (const EnumText<Enum>& entry : table) {
    if (entry.value == value) return entry.text;
  }
  return otherwise;
}

/// The enumerator of a number, or another one for a number that the table does not hold.
template <typename Enum, std::size_t size>
Enum valueOf(const EnumText<Enum> (&table)[size], int number, Enum otherwise) {
  for (const EnumText<Enum>& entry : table) {
    if (entry.value == number) return entry.value;
  }
  return otherwise;
}

}  // namespace zntopo::detail
