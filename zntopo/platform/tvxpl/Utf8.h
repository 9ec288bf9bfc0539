#pragma once

#include <cstddef>
#include <string_view>

namespace TvXplStr {

/// The length in bytes, 1 to 4, of the UTF-8 sequence at the front of a text that is not empty; 0
/// if it is malformed: cut short, longer than needed, a surrogate, or beyond U+10FFFF.
std::size_t sequenceLength(std::string_view text);

/// True if a text is well-formed UTF-8.
bool isUtf8(std::string_view text);

}  // namespace TvXplStr
