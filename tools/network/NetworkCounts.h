#pragma once

#include <cstddef>
#include <vector>

#include "tools/network/NetworkModel.h"

namespace zntopo::tools {

/// How many objects of each kind networks hold.
struct NetworkCounts {
  std::size_t nodes = 0;
  std::size_t interfaces = 0;
  std::size_t addresses = 0;
  std::size_t subnets = 0;
  std::size_t vlans = 0;
  std::size_t links = 0;
  std::size_t meshes = 0;
  std::size_t hsrpGroups = 0;
  std::size_t containers = 0;
  std::size_t associations = 0;
};

/// Counts what several networks hold together: what stands in more than one of them, by its key,
/// is one, as it is in a store.
NetworkCounts countNetworks(const std::vector<NetworkModel>& networks);

}  // namespace zntopo::tools
