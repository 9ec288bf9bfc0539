#include "zntopo/api/detail/NodeSql.h"

#include <arpa/inet.h>

#include "zntopo/core/ltos.h"
#include "zntopo/store/detail/QuotedList.h"

namespace zntopo::detail {

namespace {

constexpr const char* kNodeColumnText =
    "select "
    " NODE.ObjId, NODE.EntityName, NODE.IPLevel, NODE.QRMObjId, NODE.Description, "
    "NODE.ZoneNumber, NODE.V6CompoundStatus, NODE.V6GlobalStatus, NODE.V6SiteStatus, "
    "NODE.StatusChangeTimeUTC, NODE.CreateTimeUTC, NODE.ChangeTimeUTC, "
    "NODE.hasDynamicProperty, NODE.hasAddress, "
    "NODE.isATM, NODE.isOSPF, NODE.isBGP, NODE.isHSRP, NODE.isFrameRelay, "
    "NODE.isMultiHome, NODE.isMPLS, NODE.isLanSwitch, NODE.isManageable, "
    "NODE.isIPV6Router, NODE.isIPV4Router, NODE.SysOID, NODE.V4ManagementAddress,NODE.Status, "
    "NODE.L2DomainId, NODE.SNMPState, NODE.PubV4ManagementAdd, NODE.V4ManagementAddressRD,  "
    "NODE.isVRRP, NODE.isRMON, NODE.isRMON2, NODE.isDS1, NODE.isDS3, NODE.isSONET, NODE.isCDP, "
    "NODE.isSTP, NODE.isWireless, NODE.sysContact, NODE.sysLocation, NODE.isSNMPSupported  ";

/// The nodes that own an address or are managed through it. Without a route distinguisher an
/// IPv4 address is a public one, with one a private one; the management address is always public.
std::string nodeAddressSelect(const char* column, const TableSet& tables, const std::string& name,
                              int rd) {
  const std::string equalsName = " = '" + name + "'";
  std::string owners = "select NodeObjID from " + tables.addressTbl_ + " where " + column;
  std::string managed =
      "select ObjID from " + tables.nwnodeTbl_ + " where PubV4ManagementAdd" + equalsName;
  owners += equalsName;
  if (rd != -1) {
    owners += " and RouteDistinguisher = " + ltos(rd);
    managed += " and V4ManagementAddressRD = " + ltos(rd);
  }
  return owners + "  union " + managed;
}

}  // namespace

NodeNameClass classifyNodeName(const std::string& name) {
  if (ObjID(name).getIDType() == ObjID::E_MsUuid) return NodeNameClass::Uuid;
  if (inet_addr(name.c_str()) != INADDR_NONE) return NodeNameClass::IPv4;
  if (name.find('.') != std::string::npos) return NodeNameClass::FullDns;
  if (name.find(':') != std::string::npos) return NodeNameClass::IPv6;
  return NodeNameClass::PartialDns;
}

std::string nodeTables(const TableSet& tables) { return tables.nwnodeTbl_ + " NODE "; }

std::string nodeSelect(const std::string& condition, const std::string& tables) {
  std::string sql = kNodeColumnText;
  sql += " from " + tables;
  if (!condition.empty()) sql += " where " + condition;
  return sql;
}

std::string nodeIDCondition(const std::list<ObjID>& ids, bool isQRMID) {
  return quotedList(isQRMID ? " NODE.QRMObjID in (" : " NODE.ObjID in (", ids);
}

std::string allNodesCondition(ZNEntity::IPLevel level, int rd) {
  std::string condition;
  if (level == ZNEntity::IPv4) condition = "  NODE.IPLevel = 4  ";
  if (level == ZNEntity::IPv6) condition = "   NODE.IPLevel = 6  ";
  if (rd >= 0) {
    if (!condition.empty()) condition += " AND ";
    condition += " NODE.V4ManagementAddressRD = " + ltos(rd);
  }
  return condition;
}

std::string nodeNameSelect(NodeNameClass nameClass, const TableSet& tables, const std::string& name,
                           int rd) {
  if (nameClass == NodeNameClass::IPv4) {
    return nodeAddressSelect(rd == -1 ? "PubV4Address" : "V4Address", tables, name, rd);
  }
  if (nameClass == NodeNameClass::IPv6) return nodeAddressSelect("V6Address", tables, name, rd);
  const std::string select = "select objID from " + tables.nwnodeTbl_ +
                             " where entityname "
                             " ";
  if (nameClass == NodeNameClass::FullDns) return select + "= '" + name + "'";
  return select + "like '" + name + "%'";
}

}  // namespace zntopo::detail
