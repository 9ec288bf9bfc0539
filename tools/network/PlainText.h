#pragma once

#include <cstddef>
#include <string>

/// @file
/// Texts from outside, made fit to be shown or to be names.

namespace zntopo::tools {

/// True for a control character of one byte: none of them belongs into a name.
constexpr bool isControl(unsigned char c) { return c < 0x20 || c == 0x7f; }

/// A text with "?" for each character that could disturb a terminal or a table, or fool a reader:
/// control characters, those that turn the direction of writing, and bytes that are no UTF-8.
std::string printable(const std::string& text);
/// The same for a text of several lines, which stay lines.
std::string printableLines(const std::string& text);

/// The width of names and keys: that of the store's name columns, in bytes.
constexpr std::size_t kNameWidth = 255;

/// What keeps a text from being a name: "is empty", "is longer than 255 bytes", "is not UTF-8",
/// "has a control character in it". Empty if nothing does.
std::string nameFault(const std::string& name, std::size_t width = kNameWidth);

}  // namespace zntopo::tools
