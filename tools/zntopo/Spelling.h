#pragma once

#include <string>
#include <vector>

namespace zntopo::tools {

/// The name that a word was probably meant to be: the nearest by letters to change, add or leave
/// out, if it is near at all. Empty if none is.
std::string nearest(const std::string& word, const std::vector<std::string>& names);

/// A text as one word for a shell, for commands that a message tells: in single quotes if it needs
/// them, and fit for a terminal.
std::string shellWord(const std::string& text);

}  // namespace zntopo::tools
