#include "zntopo/api/detail/InterfaceSql.h"

#include "zntopo/api/detail/TypeTexts.h"
#include "zntopo/core/ltos.h"
#include "zntopo/store/detail/QuotedList.h"

namespace zntopo::detail {

namespace {

constexpr char kSelect[] =
    "select "
    " a.ObjId, a.EntityName, a.IPLevel, a.QRMObjId, a.Description, "
    "a.EntityType, a.ZoneNumber, a.V6CompoundStatus, a.V6GlobalStatus, a.V6SiteStatus, "
    "a.StatusChangeTimeUTC, a.CreateTimeUTC, a.ChangeTimeUTC, "
    "a.hasDynamicProperty, a.hasAddress, "
    "a.NodeObjID, a.PhysicalAddress, a.VendorCard, a.VendorPort, a.IfIndex,  "
    "a.IfName, a.IfType, a.Vpi, a.Vci, "
    "a.IfAlias, a.nodeName, a.isL2Connected, a.Port, a.isHSRP, a.Status, a.L2DomainId, "
    "a.IfOperStatus, a.IfAdminState, a.isATM, a.isOSPF, a.isBGP, "
    "a.isFrameRelay, a.isMeshInterface, a.isMPLS, a.isVRRP,  a.isDS1, "
    "a.isDS3, a.isSONET, a.isCDP, a.isSTP, a.isWireless, a.routeDistinguisher, "
    "a.IfSpeed, a.isAccessPort, a.AscChangeTime  "
    "from ";

}  // namespace

std::string interfaceSelect(const TableSet& tables, const std::string& partOfWhere) {
  return kSelect + tables.nwinterfaceTbl_ + " a " + partOfWhere;
}

std::string whereInterfaceIDs(const std::list<ObjID>& ids, bool isQRMID) {
  return quotedList(isQRMID ? " where a.QRMObjID in ( " : " where a.ObjID in ( ", ids);
}

std::string whereConnected() { return " where a.isL2Connected = 1 "; }

std::string whereInterfacesOfNodes(const std::list<ObjID>& nodeIDs) {
  return quotedList(" where a.NodeObjID in (", nodeIDs);
}

std::string interfaceIDsOfNodesSql(const TableSet& tables, const std::list<ObjID>& nodeIDs) {
  return "select NodeObjID, ObjID   from " + tables.nwinterfaceTbl_ + "  where  NodeObjId in " +
         quotedList(" ( ", nodeIDs);
}

std::string ownersOfIPv4Sql(const TableSet& tables, const std::string& address, int rd) {
  if (rd == -1) {
    return "select objID from " + tables.addressTbl_ + " where PubV4Address = '" + address + "'";
  }
  return "select objID from " + tables.addressTbl_ + " where V4Address  = '" + address +
         "' and RouteDistinguisher = " + ltos(rd);
}

std::string interfacesByNameSql(const TableSet& tables, const std::string& name,
                                const std::string& nodeName) {
  return "select objID from " + tables.nwinterfaceTbl_ + " where NodeName  = '" + nodeName +
         "' and ifName = '" + name + "' or description = '" + name + "'";
}

std::string meshSql(const TableSet& tables, const ObjID& interfaceID) {
  return "select ContainerObjId from " + tables.containmentTbl_ + " where ContainedObjID = '" +
         interfaceID.getStrValue() + "' and ContainerType = 10";
}

std::string containedInterfacesSql(const TableSet& tables, const ObjID& containerID) {
  return "select ContainedObjId from " + tables.containmentTbl_ + " where ContainerObjID = '" +
         containerID.getStrValue() + "' and ContainedType = " + INTERFACE_ENTITY_TYPE_STRING;
}

}  // namespace zntopo::detail
