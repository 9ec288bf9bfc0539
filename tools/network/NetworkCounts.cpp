#include "tools/network/NetworkCounts.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace zntopo::tools {

namespace {

// The networks outlive the sets, so these hold no copies of keys.
using Keys = std::set<std::string_view>;

/// How many different keys the entities of one kind have in all networks.
template <typename Entity>
std::size_t countKeys(const std::vector<NetworkModel>& networks,
                      std::vector<Entity> NetworkModel::*entities) {
  Keys keys;
  for (const NetworkModel& network : networks) {
    for (const Entity& entity : network.*entities) keys.insert(entity.key);
  }
  return keys.size();
}

std::size_t countAssociations(const std::vector<NetworkModel>& networks) {
  std::set<std::tuple<std::string_view, std::string_view, int>> associations;
  for (const NetworkModel& network : networks) {
    for (const AssociationModel& one : network.associations) {
      associations.emplace(network.containers[one.left].key, network.containers[one.right].key,
                           one.relation);
    }
  }
  return associations.size();
}

}  // namespace

NetworkCounts countNetworks(const std::vector<NetworkModel>& networks) {
  Keys interfaces;
  std::set<std::pair<std::string_view, std::string>> addresses;
  std::set<std::pair<std::string_view, std::string_view>> links;
  for (const NetworkModel& network : networks) {
    for (const NodeModel& node : network.nodes) {
      for (const InterfaceModel& interface : node.interfaces) {
        interfaces.insert(interface.key);
        for (const AddressModel& address : interface.addresses) {
          addresses.emplace(interface.key, address.address.text());
        }
      }
    }
    for (const LinkModel& link : network.links) {
      const std::string_view left = network.at(link.left).key;
      const std::string_view right = network.at(link.right).key;
      links.emplace(std::min(left, right), std::max(left, right));
    }
  }
  return {.nodes = countKeys(networks, &NetworkModel::nodes),
          .interfaces = interfaces.size(),
          .addresses = addresses.size(),
          .subnets = countKeys(networks, &NetworkModel::subnets),
          .vlans = countKeys(networks, &NetworkModel::vlans),
          .links = links.size(),
          .meshes = countKeys(networks, &NetworkModel::meshes),
          .hsrpGroups = countKeys(networks, &NetworkModel::hsrpGroups),
          .containers = countKeys(networks, &NetworkModel::containers),
          .associations = countAssociations(networks)};
}

}  // namespace zntopo::tools
