#include "tools/zntopo/fields/InterfaceFields.h"

namespace zntopo::tools {

namespace {

Json addresses(const ZNInterface& interface) {
  Json result = Json::array();
  for (const auto type : {ZNAddress::IPv4, ZNAddress::IPv6}) {
    const auto list = interface.getAddressesByType(type);
    if (!list) continue;
    for (const auto& address : *list) result.push_back(address->getAddressAsString());
  }
  return result;
}

constexpr Field<ZNInterface> kInterfaceFields[] = {
    {.key = "name",
     .head = "INTERFACE",
     .value = [](const ZNInterface& interface) -> Json { return interfaceLabel(interface); }},
    {.key = "id", .value = member<&ZNInterface::getObjID>},
    {.key = "if_name", .value = member<&ZNInterface::getIfName>},
    {.key = "alias", .value = member<&ZNInterface::getIfAlias>},
    {.key = "description", .value = member<&ZNInterface::getDescription>},
    {.head = "LINKED", .value = member<&ZNInterface::isConnectedByL2Link>},
    {.key = "physical_address",
     .head = "PHYSICAL ADDRESS",
     .value = member<&ZNInterface::getPhysAddr>},
    {.key = "index", .value = member<&ZNInterface::getIfIndex>},
    {.key = "speed", .value = member<&ZNInterface::getIfSpeed>},
    {.key = "card", .value = member<&ZNInterface::getCardLoc>},
    {.key = "port", .value = member<&ZNInterface::getPortNum>},
    {.key = "connected", .value = member<&ZNInterface::isConnectedByL2Link>},
    {.key = "addresses", .head = "ADDRESSES", .value = addresses},
    {.head = "DESCRIPTION", .value = member<&ZNInterface::getDescription>},
};

}  // namespace

std::string interfaceLabel(const ZNInterface& interface) {
  const std::string padded = interface.getInterfaceName();
  return padded.substr(0, padded.find('\0'));
}

std::span<const Field<ZNInterface>> interfaceFields() { return kInterfaceFields; }

}  // namespace zntopo::tools
