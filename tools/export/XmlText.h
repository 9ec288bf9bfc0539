#pragma once

#include <string>

namespace zntopo::tools {

/// A text as it stands in XML, in an element or between double quotes: what has a meaning there is
/// escaped, and what XML has no room for becomes a blank or U+FFFD.
std::string xmlText(const std::string& text);

}  // namespace zntopo::tools
