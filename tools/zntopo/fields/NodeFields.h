#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/zntopo/fields/Field.h"
#include "zntopo/model/ZNNode.h"

namespace zntopo::tools {

/// What a list of nodes tells of each.
std::span<const Field<ZNNode>> nodeFields();

/// What is known of a node that was asked for alone.
struct NodeDetails {
  const ZNNode& node;
  std::size_t interfaces = 0;
  /// Names.
  std::vector<std::string> vlans;
};

/// What is told of one node besides nodeFields().
std::span<const Field<NodeDetails>> nodeDetailFields();

}  // namespace zntopo::tools
