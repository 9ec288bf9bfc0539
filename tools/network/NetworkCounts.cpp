#include "tools/network/NetworkCounts.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace zntopo::tools {

NetworkCounts countNetworks(const std::vector<NetworkModel>& networks) {
  // The networks outlive the sets, so these hold no copies of keys.
  using Keys = std::set<std::string_view>;
  Keys nodes, interfaces, subnets, vlans;
  std::set<std::pair<std::string_view, std::string>> addresses;
  std::set<std::pair<std::string_view, std::string_view>> links;
  for (const NetworkModel& network : networks) {
    for (const NodeModel& node : network.nodes) {
      nodes.insert(node.key);
      for (const InterfaceModel& interface : node.interfaces) {
        interfaces.insert(interface.key);
        for (const AddressModel& address : interface.addresses) {
          addresses.emplace(interface.key, address.address.text());
        }
      }
    }
    for (const SubnetModel& subnet : network.subnets) subnets.insert(subnet.key);
    for (const VlanModel& vlan : network.vlans) vlans.insert(vlan.key);
    for (const LinkModel& link : network.links) {
      const std::string_view left = network.at(link.left).key;
      const std::string_view right = network.at(link.right).key;
      links.emplace(std::min(left, right), std::max(left, right));
    }
  }
  return {nodes.size(),   interfaces.size(), addresses.size(),
          subnets.size(), vlans.size(),      links.size()};
}

}  // namespace zntopo::tools
