#include "zntopo/core/MCLog.h"
#include "zntopo/model/ZNNode.h"
#include "zntopo/model/detail/Rendering.h"
#include "zntopo/model/detail/TableRow.h"

namespace zntopo {

namespace {

using Line = detail::Line<ZNNode>;

/// The management address as the node holds it; null for none.
const InetAddressIPv4* heldAddress(const ZNNode& node) {
  return node.getNodeProperty().V4MgmtAddress.getObjectPointer();
}

// A node without a management address has empty ones, and the route distinguisher 0.
std::string privateAddressOf(const ZNNode& node) {
  const InetAddressIPv4* const address = heldAddress(node);
  return address ? address->getAddressAsString() : "";
}

std::string publicAddressOf(const ZNNode& node) {
  const InetAddressIPv4* const address = heldAddress(node);
  return address ? address->getCommunicationAddress() : "";
}

std::string mgmtOadIdOf(const ZNNode& node) {
  const InetAddressIPv4* const address = heldAddress(node);
  return detail::shownAs32Bits(address ? address->getRouteDistinguisher() : 0);
}

std::string linkText(const ZNRefPtr<ZNConnData>& link) {
  if (link.isNull()) return "";
  return "\n([" + detail::shown(link->getSrcNodeObjID()) + "," +
         detail::shown(link->getSrcInterfaceObjID()) + "],[" +
         detail::shown(link->getDestNodeObjID()) + "," +
         detail::shown(link->getDestInterfaceObjID()) + "])";
}

std::string linkXml(const ZNRefPtr<ZNConnData>& link) {
  if (link.isNull()) return "";
  return ZNTopoXMLTag::formL2Connection(link->getSrcNodeObjID(), link->getSrcInterfaceObjID(),
                                        link->getDestNodeObjID(), link->getDestInterfaceObjID());
}

template <typename Write>
std::string interfacesOf(const ZNNode& node, const Write& write) {
  const std::unique_ptr<ZNNode::InterfaceList> interfaces = node.getInterfacesList();
  return interfaces ? detail::joined(*interfaces, write) : "";
}

constexpr Line kText[] = {
    {"\n+++++++++++++++++ ZNNode ++++++++++++++++", Line::baseText<ZNEntity>},
    {"\nSysOID:", Line::of<&ZNNode::getEntityOid>},
    {"\nL2DomainID:", Line::of<&ZNNode::getL2DomainID>},
    // This may read the address, which the node holds from then on.
    {"\nMgmtAddress:", Line::textOf<&ZNNode::getIPv4MgmtAddress>},
    {"\nNodeRD:", mgmtOadIdOf},
    {"\nSysContact:", Line::of<&ZNNode::getSysContact>},
    {"\nSysLocation:", Line::of<&ZNNode::getSysLocation>},
    {"\nSnmpState:", Line::of<&ZNNode::getSnmpState>},
    {"\nCapability: ", Line::textOf<&ZNNode::getNodeCapabilitySet>},
    {"",
     [](const ZNNode& node) {
       return detail::section("\n ============ Vlan Information ====================",
                              node.getVlanInfoList(), detail::asText);
     }},
    {"",
     [](const ZNNode& node) {
       return detail::section(
           "\n ============ Layer 2 Information ====================\n ([SrcNodeObjID, "
           "SrcInterfaceObjID],[DestNodeObjID, DestInterfaceObjID] )",
           node.getConnDataList(), linkText);
     }},
};

constexpr Line kInterfaceText[] = {
    {"\n ============ Interface Information ====================",
     [](const ZNNode& node) { return interfacesOf(node, detail::asText); }},
};

constexpr Line kTextEnd[] = {
    {"",
     [](const ZNNode& node) {
       return detail::section("\n ============ IfC Information ====================",
                              node.getIfcInfoList(), detail::asText);
     }},
    {"\n----------------- ZNNode ----------------\n"},
};

constexpr Line kXml[] = {
    {"<ZNNode>\n", Line::baseXml<ZNEntity>},
    {"SysOID", Line::of<&ZNNode::getEntityOid>, "str"},
    {"L2DomainID", Line::of<&ZNNode::getL2DomainID>, "int"},
    {"MgmtCommunicationAddress", publicAddressOf, "str"},
    {"MgmtActualAddress", privateAddressOf, "str"},
    {"MgmtAddressOADId", mgmtOadIdOf, "int"},
    {"SysContact", Line::of<&ZNNode::getSysContact>, "str"},
    {"SysLocation", Line::of<&ZNNode::getSysLocation>, "str"},
    {"SnmpState", Line::of<&ZNNode::getSnmpState>, "int"},
    {"", [](const ZNNode& node) { return detail::capabilityXml(node.getCapabilityListVal()); }},
    {"",
     [](const ZNNode& node) {
       return detail::section("<VlanInfos>\n", node.getVlanInfoList(), detail::asXml,
                              "</VlanInfos>\n");
     }},
    {"",
     [](const ZNNode& node) {
       return detail::section("<L2Connections>\n", node.getConnDataList(), linkXml,
                              "</L2Connections>\n");
     }},
};

}  // namespace

std::string ZNNode::toString() const { return toString(true); }
std::string ZNNode::toString(bool withInterfaces) const { return print(withInterfaces); }

std::string ZNNode::print(bool withInterfaces) const {
  MCLog::log(MC_TRACE_L2, "Entering ZNNode::toString() \n");
  std::string text = detail::rendered(*this, kText);
  if (withInterfaces) text += detail::rendered(*this, kInterfaceText);
  text += detail::rendered(*this, kTextEnd);
  MCLog::log(MC_TRACE_L2, "Exiting ZNNode::toString() \n");
  return text;
}

std::string ZNNode::toXML() const { return toXML(false); }

std::string ZNNode::toXML(bool withInterfaces) const {
  std::string text = detail::rendered(*this, kXml);
  if (withInterfaces) text += interfacesOf(*this, detail::asXml);
  return text + "</ZNNode>\n";
}

std::string ZNNode::toShortString() const {
  const std::string publicAddress = publicAddressOf(*this);
  const std::string privateAddress = privateAddressOf(*this);
  const std::string cells[] = {
      getName(),          getOverallStatus().toString(),
      publicAddress,      privateAddress == publicAddress ? detail::kNoCell : privateAddress,
      mgmtOadIdOf(*this), detail::shown(getIPLevel())};
  return detail::kNodeRow.row(cells);
}

}  // namespace zntopo
