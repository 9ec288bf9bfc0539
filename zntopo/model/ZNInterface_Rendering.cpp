#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/detail/EnumTable.h"
#include "zntopo/model/detail/HSRPLine.h"
#include "zntopo/model/detail/Rendering.h"
#include "zntopo/model/detail/TableRow.h"

namespace zntopo {

namespace {

using Line = detail::Line<ZNInterface>;

constexpr Line kText[] = {
    {"\n+++++++++++++++++ ZNInterface ++++++++++++++", Line::baseText<ZNEntity>},
    {"\n==========Interface Property==============="},
    {"\nVPI:", Line::of<&ZNInterface::getVPI>},
    {"\nVCI:", Line::of<&ZNInterface::getVCI>},
    {"\nBoardNo:", Line::of<&ZNInterface::getCardLoc>},
    {"\nPortNum:", Line::of<&ZNInterface::getPortNum>},
    {"\nAuxPortNum:", Line::of<&ZNInterface::getAuxPortNum>},
    {"\nIfIndex:", Line::of<&ZNInterface::getIfIndex>},
    {"\nIfName:", Line::of<&ZNInterface::getIfName>},
    {"\nIfAlias:", Line::of<&ZNInterface::getIfAlias>},
    {"\nIfType:", Line::of<&ZNInterface::getIfType>},
    {"\nPhysicalAddress:", Line::of<&ZNInterface::getPhysAddr>},
    {"\nL2DomainID:", Line::of<&ZNInterface::getL2DomainID>},
    {"\nIfOperStatus:", Line::of<&ZNInterface::getIfOperStatus>},
    {"\nIfAdminStatus:", Line::of<&ZNInterface::getIfAdminStatus>},
    {"\nIfSpeed:", Line::of<&ZNInterface::getIfSpeed>},
    {"\nIF Capability : ",
     [](const ZNInterface& interface) {
       return detail::capabilityText(interface.getCapabilityList());
     }},
    {"", [](const ZNInterface& interface) { return detail::hsrpLine(interface.getHSRPObjIDs()); },
     nullptr, [](const ZNInterface& interface) { return interface.isInHSRP(); }},
    {"\n----------------- ZNInterface --------------"},
};

constexpr Line kXml[] = {
    {"<ZNInterface>\n", Line::baseXml<ZNEntity>},
    {"VPI", Line::of<&ZNInterface::getVPI>, "int"},
    {"VCI", Line::of<&ZNInterface::getVCI>, "int"},
    {"BoardNo", Line::of<&ZNInterface::getCardLoc>, "str"},
    {"PortNo", Line::of<&ZNInterface::getPortNum>, "str"},
    {"AuxPortNo", Line::of<&ZNInterface::getAuxPortNum>, "str"},
    {"IfIndex", Line::of<&ZNInterface::getIfIndex>, "int"},
    {"IfName", Line::of<&ZNInterface::getIfName>, "str"},
    {"IfAlias", Line::of<&ZNInterface::getIfAlias>, "str"},
    {"IfType", Line::of<&ZNInterface::getIfType>, "int"},
    {"PhyAddr", Line::of<&ZNInterface::getPhysAddr>, "str"},
    {"L2DOMId", Line::of<&ZNInterface::getL2DomainID>, "int"},
    {"IfOperStatus", Line::of<&ZNInterface::getIfOperStatus>, "int"},
    {"IfAdminStatus", Line::of<&ZNInterface::getIfAdminStatus>, "int"},
    {"IfSpeed", Line::of<&ZNInterface::getIfSpeed>, "int"},
    {"",
     [](const ZNInterface& interface) {
       return detail::capabilityXml(interface.getCapabilityList());
     }},
    {"</ZNInterface>\n"},
};

constexpr detail::EnumText<PingState> kPingStates[] = {
    {Ping_Responding, "Rspd"},     {Ping_NotResponding, "NotRspd"}, {Ping_Unreachable, "Unreach"},
    {Ping_AgentDown, "AgentDown"}, {Ping_Disabled, "Disabled"},
};

std::string addressRow(const ZNAddress& address) {
  std::string status = detail::textOf(kPingStates, address.getPingState(), "");
  std::string reached = address.getAddressAsString();
  std::string own = reached;
  std::string route = detail::kNoCell;
  if (const auto* const v4 = dynamic_cast<const InetAddressIPv4*>(&address)) {
    reached = v4->getPublicAddress();
    route = detail::shownAs32Bits(v4->getRouteDistinguisher());
  }
  if (const auto* const v6 = dynamic_cast<const MonitoredInetAddressIPv6*>(&address)) {
    status = v6->getPingStatus().getStatus().toString();
  }
  if (reached == own) own = detail::kNoCell;
  const std::string cells[] = {"    -", status, reached, own, route};
  return detail::kInterfaceRow.row(cells);
}

}  // namespace

std::string ZNInterface::toString() const { return detail::rendered(*this, kText); }
std::string ZNInterface::toXML() const { return detail::rendered(*this, kXml); }

std::string ZNInterface::toShortString() const {
  const std::string cells[] = {getInterfaceName(),     getOverallStatus().toString(),
                               detail::kNoCell,        detail::kNoCell,
                               detail::shown(getRD()), detail::shown(getIPLevel())};
  return detail::kInterfaceRow.row(cells) +
         detail::joined(getAddresses(), [](const ZNRefPtr<ZNAddress>& address) {
           return address.isNull() ? std::string() : addressRow(*address);
         });
}

}  // namespace zntopo
