#include "tools/zntopo/NodeText.h"

namespace zntopo::tools {

std::string managementAddress(const ZNNode& node) {
  const std::string address = node.getIPv4ManagementAddress();
  return address.empty() ? "-" : address;
}

std::string nodeRole(const ZNNode& node) {
  if (node.isRouter()) return node.isSwitch() ? "router, switch" : "router";
  return node.isSwitch() ? "switch" : "";
}

Json nodeJson(const ZNNode& node) {
  Json json;
  json["name"] = node.getName();
  json["id"] = node.getObjID().toString();
  json["description"] = node.getDescription();
  json["ip_level"] = static_cast<int>(node.getIPLevel());
  json["management_address"] = managementAddress(node);
  json["router"] = node.isRouter();
  json["switch"] = node.isSwitch();
  json["zone"] = node.getZoneNumber();
  return json;
}

}  // namespace zntopo::tools
