#pragma once

#include <string>

/// @file
/// Texts from outside, made fit to be shown.

namespace zntopo::tools {

/// True for what could disturb a terminal or a table.
constexpr bool isControl(unsigned char c) { return c < 0x20 || c == 0x7f; }

/// A text with its control characters replaced by "?".
std::string printable(const std::string& text);
/// The same for a text of several lines, which stay lines.
std::string printableLines(const std::string& text);

}  // namespace zntopo::tools
