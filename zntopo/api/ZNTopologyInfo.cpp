#include "zntopo/api/ZNTopologyInfo.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Info = ZNTopologyInfo;
using Line = detail::Line<Info>;
namespace messages = detail::messages;

/// A counter and the end of its line.
template <auto counter>
std::string count(const Info& info) {
  return detail::shown(std::invoke(counter, info)) + "\n";
}

// Meshes are no objects of this sum, and DNS names no addresses of that one.
int objectsOf(const Info& info) {
  return info.getNumberOfNode() + info.getNumberOfInterface() + info.getNumberOfPrefixGroup() +
         info.getNumberOfVlan() + info.getNumberOfHSRP() + info.getNumberOfSubnet();
}

int addressesOf(const Info& info) {
  return info.getNumberOfV4Address() + info.getNumberOfV6Address();
}

std::string domainsOf(const Info& info) {
  return detail::joined(info.getRDMap(), [](const auto& domain) {
    return domain.first + "\t" + messages::kHas.get() + detail::shown(domain.second) +
           messages::kNodesOfDomain.get();
  });
}

constexpr Line kText[] = {
    {"\n\n", Line::textOf<&Info::getTopologyState>},
    {messages::kNodes, count<&Info::getNumberOfNode>},
    {messages::kInterfaces, count<&Info::getNumberOfInterface>},
    {messages::kVlans, count<&Info::getNumberOfVlan>},
    {messages::kHSRPGroups, count<&Info::getNumberOfHSRP>},
    {messages::kSwitchMeshes, count<&Info::getNumberOfMesh>},
    {messages::kObjects, count<objectsOf>},
    {messages::kL2Links, count<&Info::getNumberOfL2Link>},
    {messages::kIPv4Nodes, count<&Info::getNumberOfIPV4Node>},
    {messages::kIPv6Nodes, count<&Info::getNumberOfIPV6Node>},
    {messages::kIPv6PrefixGroups, count<&Info::getNumberOfPrefixGroup>},
    {messages::kIPv4Subnets, count<&Info::getNumberOfSubnet>},
    {messages::kV4SnmpNodes, count<&Info::getNumberOfV4SNMPNode>},
    {messages::kIPv4Interfaces, count<&Info::getNumberOfIPV4Interface>},
    {messages::kIPv6Interfaces, count<&Info::getNumberOfIPV6Interface>},
    {messages::kIPv4Addresses, count<&Info::getNumberOfV4Address>},
    {messages::kIPv6Addresses, count<&Info::getNumberOfV6Address>},
    {messages::kAddressObjects, count<addressesOf>},
    {messages::kOverlappingDomains, domainsOf},
    {"\n"},
};

}  // namespace

std::string ZNTopologyInfo::toString() const { return detail::rendered(*this, kText); }

}  // namespace zntopo
