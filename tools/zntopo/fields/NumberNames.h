#pragma once

#include <cstddef>

#include "tools/zntopo/Answer.h"

namespace zntopo::tools {

/// A name, as users read and type it, of what the library has a number for.
template <typename Number>
struct NumberName {
  const char* name;
  Number number;
};

/// The name of a number; null if it has none.
template <typename Number, std::size_t size>
Json nameOf(const NumberName<Number> (&names)[size], Number number) {
  for (const NumberName<Number>& one : names) {
    if (one.number == number) return one.name;
  }
  return nullptr;
}

}  // namespace zntopo::tools
