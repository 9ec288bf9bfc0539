#pragma once

#include <string>

#include "zntopo/core/ZNTopoAPIStatus.h"

namespace zntopo::tools {

/// What a user can do about a failure of the store, told from its status and from what the
/// engine says; empty where there is nothing to add.
std::string adviceOn(const ZNTopoAPIStatus& status);

}  // namespace zntopo::tools
