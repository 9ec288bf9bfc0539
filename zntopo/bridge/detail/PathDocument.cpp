#include "zntopo/bridge/detail/PathDocument.h"

#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/model/ZNNode.h"

namespace zntopo::bridge {

namespace {

void addElement(std::string& xml, const char* name, const std::string& value) {
  xml.append("<").append(name).append(">").append(value);
  xml.append("</").append(name).append(">\n");
}

/// An element that tells whether a node has a capability.
struct CapabilityElement {
  const char* name;
  const char* capability;
};

constexpr CapabilityElement kRouterCapabilities[] = {
    {"IS_OSPF", "isOSPF"}, {"IS_BGP", "isBGP"},   {"IS_IPV6", "isIPv6Router"},
    {"IS_HSRP", "isHSRP"}, {"IS_MPLS", "isMPLS"},
};
constexpr CapabilityElement kSwitchCapabilities[] = {
    {"IS_ATM", "isATM"},
    {"IS_FRAMERELAY", "isFrameRelay"},
};

template <std::size_t size>
void addCapabilities(std::string& xml, const ZNRefPtr<ZNNode>& node,
                     const CapabilityElement (&elements)[size]) {
  for (const CapabilityElement& element : elements) {
    const bool has = !node.isNull() && node->hasCapability(element.capability);
    addElement(xml, element.name, has ? "1" : "0");
  }
}

void addRouter(std::string& xml, const ZNInterface& interface, const ZNRefPtr<ZNNode>& node) {
  const std::vector<ZNRefPtr<ZNAddress>> addresses = interface.getAddresses();
  if (!addresses.empty() && !addresses.front().isNull()) {
    addElement(xml, "IP_ADDRESS", addresses.front()->getAddressAsString());
  }
  addCapabilities(xml, node, kRouterCapabilities);
}

void addSwitch(std::string& xml, const ZNInterface& interface, const ZNRefPtr<ZNNode>& node) {
  ZNRefPtr<InetAddressIPv4> address;
  if (!node.isNull()) address = node->getNodeProperty().V4MgmtAddress.get();
  addElement(xml, "IP_ADDRESS", address.isNull() ? "" : address->getAddressAsString());
  addCapabilities(xml, node, kSwitchCapabilities);
  addElement(xml, "BOARD_NUMBER", interface.getCardLoc());
  addElement(xml, "PORT_NUMBER", interface.getPortNum());
  addElement(xml, "INTERFACE_NAME", interface.getIfName());
}

void addNode(std::string& xml, ZNTopoAPI& api, const ZNInterface& interface) {
  ZNTopoAPIStatus status;
  const ObjID parent = interface.getParentObjID();
  const ZNRefPtr<ZNNode> node = api.getNodeByObjID(parent, status);
  const bool isARouter = !node.isNull() && node->isRouter();
  xml += "<NODE>\n";
  addElement(xml, "QRM_OBJECT_ID", interface.getQRMObjID().getStrValue());
  addElement(xml, "RZ_OBJECT_ID", interface.getObjID().getStrValue());
  addElement(xml, "PARENT_OBJECT_ID", (node.isNull() ? parent : node->getObjID()).getStrValue());
  addElement(xml, "OSI_LEVEL", isARouter ? "3" : "2");
  addElement(xml, "NAME", node.isNull() ? "" : node->getName());
  addElement(xml, "DESCRIPTION", node.isNull() ? "" : node->getDescription());
  if (isARouter) {
    addRouter(xml, interface, node);
  } else {
    addSwitch(xml, interface, node);
  }
  xml += "</NODE>\n";
}

}  // namespace

std::string ConvertInterfaceListToXML(const std::list<ZNRefPtr<ZNInterface>>& list) {
  std::string xml;
  ZNTopoAPI api;
  for (const ZNRefPtr<ZNInterface>& interface : list) {
    if (!interface.isNull()) addNode(xml, api, *interface);
  }
  return xml;
}

std::string pathDocument(const std::string& root, const std::string& begin, const std::string& end,
                         const ZNTopoAPIStatus& status,
                         const std::list<ZNRefPtr<ZNInterface>>* path) {
  std::string xml = "\n<" + root + " begin = \"" + begin + "\" end = \"" + end + "\">\n";
  if (!status.isOK()) {
    addElement(xml, "ERROR_CODE", std::to_string(static_cast<int>(status.getStatus())));
    addElement(xml, "ERROR_MSG", status.getStatusMsg());
  } else if (path != nullptr) {
    xml += ConvertInterfaceListToXML(*path);
  }
  return xml + "</" + root + ">\n";
}

}  // namespace zntopo::bridge
