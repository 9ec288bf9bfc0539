#pragma once

#include <string>

namespace zntopo::tools {

/// The identifier of the object that a key names: a UUID of version 5 in lower case, the same
/// for the same key at any time and place.
std::string nameUuid(const std::string& key);

}  // namespace zntopo::tools
