#include "zntopo/api/detail/NodeSql.h"

#include <arpa/inet.h>

#include <algorithm>
#include <cctype>

#include "zntopo/api/detail/QueryText.h"
#include "zntopo/core/ltos.h"

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

constexpr const char* kNamespace = "http://www.corvane.com/marlo/NetworkTopology/TopologyFilter";
constexpr const char* kSchemaInstance = "http://www.w3.org/2001/XMLSchema-instance";

std::string idList(const std::list<ObjID>& ids) { return quotedList(" ( ", ids); }

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

std::string userVarSelect(const TableSet& tables, EntityType type, const std::string& typeTable,
                          const std::list<ObjID>& ids) {
  const std::string select =
      "select a.VarName, a.VarValType, a.StrVal, a.IntVal, a.FloatVal, a.ObjID "
      "from " +
      tables.userdefvarTbl_ + " a ";
  if (type == E_Unknown) return select + " where a.ObjId in " + idList(ids);
  if (type == E_Vlan) {
    return select + " , nwentity b where a.objid = b.objid and b.entitytype = " + ltos(E_Vlan);
  }
  return select + " , " + typeTable + " b where a.ObjID = b.ObjID ";
}

std::string connDataSelect(const TableSet& tables, const std::list<ObjID>& ids, bool all) {
  const std::string select =
      "select leftobjid, rightobjid, "
      "leftifnodeobjid, rightifnodeobjid "
      "from " +
      tables.nwinterfaceassociationTbl_;
  if (all) return select + " where reltype = 1 ";
  const std::string list = idList(ids);
  return select + " where ( leftifnodeobjid in " + list + " or rightifnodeobjid in " + list +
         " ) and  reltype = 1  ";
}

std::string vlanInfoSelect(const TableSet& tables, const std::list<ObjID>& ids, bool useNodeAsKey,
                           bool all, bool ordered) {
  std::string sql = "select ";
  if (ordered) sql += "--+ ORDERED \n ";
  sql +=
      " a.ContainerObjID, a.ContainedObjID,   "
      "b.NodeObjID, b.NodeName, b.VendorPort, b.VendorCard "
      "from " +
      tables.containmentTbl_ + " a, " + tables.nwinterfaceTbl_ +
      " b where  "
      "a.ContainedObjID = b.objid  ";
  if (all) return sql + " AND a.ContainerType = " + VLAN_ENTITY_TYPE_STRING + " ";
  if (!useNodeAsKey) return sql + " AND a.ContainerObjID in " + idList(ids);
  return sql + " AND a.ContainerType = " + ltos(E_Vlan) + " AND a.ContainedNodeObjId in " +
         idList(ids);
}

std::string ifcInfoSelect(const TableSet& tables, const std::list<ObjID>& ids, bool useNodeAsKey,
                          bool all, int ifcType) {
  std::string sql =
      "select "
      " a.ContainerObjId, a.InterfaceObjId,   "
      "a.NodeObjId, a.ContainmentType, a.IFCType, a.SequenceNumber "
      "from " +
      tables.nwifcctmTbl_ + " a, " + tables.nwinterfaceTbl_ +
      " b where  "
      "a.InterfaceObjID = b.objid ";
  if (ifcType != 0) sql += " AND a.IFCType = " + ltos(ifcType);
  if (all) return sql;
  return sql + (useNodeAsKey ? " AND a.NodeObjId in " : " AND a.ContainerObjID in ") + idList(ids);
}

std::string nodeFilterDocument(const std::string& pattern, int rd) {
  const auto isLetter = [](unsigned char c) { return std::isalpha(c) != 0; };
  std::string document = std::string("<filters xmlns=\"") + kNamespace + "\" xmlns:xsi=\"" +
                         kSchemaInstance + "\" xsi:schemaLocation=\"" + kNamespace +
                         " TopoFilter.xsd\">"
                         " <nodeAssertion name=\"op1\">"
                         "<operator oper=\"NOOP\">"
                         "<attribute>";
  if (std::any_of(pattern.begin(), pattern.end(), isLetter)) {
    document += "<name><string>" + pattern + "</string></name>";
  } else {
    document += "<IPAddress> <IPv4><address>" + pattern + "</address>";
    if (rd > -1) document += "<OADId>" + ltos(rd) + "</OADId>";
    document += "</IPv4> </IPAddress>";
  }
  return document + "</attribute></operator></nodeAssertion></filters>\n";
}

}  // namespace zntopo::detail
