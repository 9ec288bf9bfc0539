#include "tools/zntopo/fields/NodeFields.h"

#include "tools/zntopo/fields/StateKind.h"

namespace zntopo::tools {

namespace {

Json role(const ZNNode& node) {
  Json roles = Json::array();
  if (node.isRouter()) roles.push_back("router");
  if (node.isSwitch()) roles.push_back("switch");
  return roles;
}

Json status(const ZNNode& node) {
  return kNodeStatus.value(node.getOverallStatus().getStatusAsInt());
}

/// What a list points out.
Json unusualStatus(const ZNNode& node) {
  return node.getOverallStatus().getStatus() == ObjectStatus::Normal ? Json() : status(node);
}

constexpr Field<ZNNode> kNodeFields[] = {
    {.key = "name", .head = "NAME", .value = member<&ZNNode::getName>},
    {.key = "id", .value = member<&ZNNode::getObjID>},
    {.key = "description", .value = knownMember<&ZNNode::getDescription>},
    {.key = "ip_level", .value = member<&ZNNode::getIPLevel>},
    {.key = "management_address",
     .head = "ADDRESS",
     .value = knownMember<&ZNNode::getIPv4ManagementAddress>},
    {.key = "router", .value = member<&ZNNode::isRouter>},
    {.key = "switch", .value = member<&ZNNode::isSwitch>},
    {.key = "status", .value = status},
    {.key = "snmp_state", .value = stateOf<kSnmpState, &ZNNode::getSnmpState>},
    {.key = "zone", .head = "ZONE", .value = knownMember<&ZNNode::getZoneNumber>, .isRare = true},
    {.head = "ROLE", .value = role},
    {.head = "STATUS", .value = unusualStatus, .isRare = true},
    {.head = "DESCRIPTION", .value = knownMember<&ZNNode::getDescription>},
};

template <auto pointer>
Json knownOfNode(const NodeDetails& details) {
  return knownMember<pointer>(details.node);
}

constexpr Field<NodeDetails> kDetailFields[] = {
    {.key = "capabilities",
     .value = [](const NodeDetails& all) -> Json { return all.node.getCapabilities(); }},
    {.key = "sys_oid", .value = knownOfNode<&ZNNode::getEntityOid>},
    {.key = "contact", .value = knownOfNode<&ZNNode::getSysContact>},
    {.key = "location", .value = knownOfNode<&ZNNode::getSysLocation>},
    {.key = "interfaces", .value = member<&NodeDetails::interfaces>},
    {.key = "links",
     .value = [](const NodeDetails& all) -> Json { return all.node.getConnDataList().size(); }},
    {.key = "vlans", .value = member<&NodeDetails::vlans>},
};

}  // namespace

std::span<const Field<ZNNode>> nodeFields() { return kNodeFields; }

std::span<const Field<NodeDetails>> nodeDetailFields() { return kDetailFields; }

}  // namespace zntopo::tools
