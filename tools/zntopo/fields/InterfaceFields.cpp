#include "tools/zntopo/fields/InterfaceFields.h"

#include "tools/zntopo/fields/EntityFields.h"
#include "tools/zntopo/fields/StateKind.h"

namespace zntopo::tools {

namespace {

template <auto pointer>
Json of(const InterfaceDetails& details) {
  return ofObject<pointer>(details);
}

template <auto pointer>
Json knownOf(const InterfaceDetails& details) {
  return knownOfObject<pointer>(details);
}

template <const StateKind& kind, auto pointer>
Json state(const InterfaceDetails& details) {
  return stateOf<kind, pointer>(*details.object);
}

constexpr Field<InterfaceDetails> kInterfaceFields[] = {
    {.head = "NODE",
     .value = [](const InterfaceDetails& all) { return all.isOfOneNode ? Json() : Json(all.node); },
     .isRare = true},
    {.key = "name",
     .head = "INTERFACE",
     .value = [](const InterfaceDetails& all) -> Json { return interfaceLabel(*all.object); }},
    {.key = "id", .value = of<&ZNInterface::getObjID>},
    {.key = "node", .value = knownMember<&InterfaceDetails::node>},
    {.key = "node_id", .value = of<&ZNInterface::getParentObjID>},
    {.key = "if_name", .value = knownOf<&ZNInterface::getIfName>},
    {.key = "alias", .value = knownOf<&ZNInterface::getIfAlias>},
    {.key = "description", .value = knownOf<&ZNInterface::getDescription>},
    {.key = "admin_status",
     .head = "ADMIN",
     .value = state<kAdminStatus, &ZNInterface::getIfAdminStatus>},
    {.key = "oper_status",
     .head = "OPER",
     .value = state<kOperStatus, &ZNInterface::getIfOperStatus>},
    {.head = "LINKED", .value = of<&ZNInterface::isConnectedByL2Link>},
    {.key = "physical_address",
     .head = "PHYSICAL ADDRESS",
     .value = knownOf<&ZNInterface::getPhysAddr>},
    {.key = "index", .value = of<&ZNInterface::getIfIndex>},
    {.key = "speed", .value = of<&ZNInterface::getIfSpeed>},
    {.key = "card", .value = knownOf<&ZNInterface::getCardLoc>},
    {.key = "port", .value = knownOf<&ZNInterface::getPortNum>},
    {.key = "connected", .value = of<&ZNInterface::isConnectedByL2Link>},
    {.key = "addresses", .head = "ADDRESSES", .value = member<&InterfaceDetails::addresses>},
    {.head = "DESCRIPTION", .value = knownOf<&ZNInterface::getDescription>},
};

}  // namespace

std::string interfaceLabel(const ZNInterface& interface) {
  const std::string padded = interface.getInterfaceName();
  return padded.substr(0, padded.find('\0'));
}

std::span<const Field<InterfaceDetails>> interfaceFields() { return kInterfaceFields; }

}  // namespace zntopo::tools
