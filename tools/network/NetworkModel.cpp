#include "tools/network/NetworkModel.h"

#include <algorithm>
#include <string_view>

namespace zntopo::tools {

std::string NetworkModel::doubledIdentifier() const {
  std::set<std::string_view> known;
  std::string doubled;
  const auto look = [&](const std::string& id) {
    if (!id.empty() && !known.insert(id).second) doubled = id;
  };
  const auto lookAtAll = [&](const auto& list) {
    for (const EntityModel& one : list) look(one.id);
  };
  lookAtAll(nodes);
  lookAtAll(subnets);
  lookAtAll(vlans);
  lookAtAll(meshes);
  lookAtAll(hsrpGroups);
  lookAtAll(containers);
  for (const SubnetModel& subnet : subnets) look(subnet.addressId);
  for (const NodeModel& node : nodes) {
    lookAtAll(node.interfaces);
    for (const InterfaceModel& interface : node.interfaces) {
      for (const AddressModel& address : interface.addresses) {
        look(address.id);
        look(address.dnsId);
      }
    }
  }
  return doubled;
}

bool NetworkModel::addLink(const EndPoint& left, const EndPoint& right) {
  if (!linked_.insert(std::minmax(left, right)).second) return false;
  links.push_back({left, right});
  return true;
}

Index NetworkModel::subnetOfKey(const std::string& key, const std::string& name, bool isV6) {
  const auto [found, isNew] = subnetsByKey_.try_emplace(key, subnets.size());
  if (isNew) {
    SubnetModel subnet;
    subnet.key = key;
    subnet.name = name;
    subnet.isV6 = isV6;
    subnets.push_back(std::move(subnet));
  }
  return found->second;
}

Index NetworkModel::subnetOf(const IpPrefix& prefix, const std::string& scope) {
  const Index index =
      subnetOfKey("subnet\n" + prefix.text() + "\n" + scope, prefix.text(), prefix.network.isV6());
  subnets[index].prefix = prefix;
  return index;
}

Index NetworkModel::vlanOf(const std::string& key, const std::string& name, int number) {
  const auto [found, isNew] = vlansByKey_.try_emplace(key, vlans.size());
  if (isNew) {
    vlans.emplace_back().key = key;
    vlans.back().number = number;
  }
  VlanModel& vlan = vlans[found->second];
  if (vlan.name.empty()) vlan.name = name;
  return found->second;
}

void NetworkModel::assignSubnet(const EndPoint& end, AddressModel& address,
                                const std::string& wire) {
  const IpAddress& ip = address.address;
  const bool isLocal = ip.scope() == AddressScope::LinkLocal || (ip.isV6() && ip.isLoopback());
  if (!address.prefixLength && ip.isV6()) {
    address.prefixLength = ip.scope() == AddressScope::LinkLocal ? 64 : 128;
  }
  if (address.subnet || !address.prefixLength) return;
  const IpPrefix prefix{ip.network(*address.prefixLength), *address.prefixLength};
  if (!ip.isV6() && (prefix.isHost() || ip.isLoopback())) return;
  const std::string scope = !isLocal ? "" : ip.isLoopback() ? nodes[end.node].key : wire;
  address.subnet = subnetOf(prefix, scope);
}

void NetworkModel::assignSubnets() {
  std::map<EndPoint, EndPoint> wireOf;
  for (const LinkModel& link : links) {
    const auto& [low, high] = std::minmax(link.left, link.right);
    wireOf.try_emplace(low, low);
    wireOf.try_emplace(high, low);
  }
  for (EndPoint end; end.node < nodes.size(); ++end.node) {
    for (end.interface = 0; end.interface < nodes[end.node].interfaces.size(); ++end.interface) {
      const auto wire = wireOf.find(end);
      const std::string wireKey = at(wire == wireOf.end() ? end : wire->second).key;
      for (AddressModel& address : at(end).addresses) assignSubnet(end, address, wireKey);
    }
  }
}

}  // namespace zntopo::tools
