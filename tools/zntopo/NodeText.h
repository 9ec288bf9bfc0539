#pragma once

#include <string>

#include "tools/zntopo/Answer.h"
#include "zntopo/model/ZNNode.h"

namespace zntopo::tools {

/// "-" for an address that the store does not have.
std::string managementAddress(const ZNNode& node);
/// "router", "switch", both, or "".
std::string nodeRole(const ZNNode& node);
/// What a list of nodes tells of each.
Json nodeJson(const ZNNode& node);

}  // namespace zntopo::tools
