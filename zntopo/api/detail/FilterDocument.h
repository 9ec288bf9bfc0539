#pragma once

#include <string>

namespace zntopo::detail {

/// A filter document with one assertion, "op1", for a pattern of names or of IPv4 addresses.
std::string nodeFilterDocument(const std::string& pattern, int rd);

}  // namespace zntopo::detail
