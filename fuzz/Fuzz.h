#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// What the fuzz targets share.

/// Ends the run where a promise is broken, so that the input is kept.
#define ZNTOPO_REQUIRE(promise)                                                  \
  do {                                                                           \
    if (!(promise)) {                                                            \
      std::fprintf(stderr, "%s:%d: broken: %s\n", __FILE__, __LINE__, #promise); \
      std::abort();                                                              \
    }                                                                            \
  } while (false)

namespace zntopo::fuzz {

inline std::string textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// The parts between a separator: one more than there are separators.
inline std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == separator) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

}  // namespace zntopo::fuzz
