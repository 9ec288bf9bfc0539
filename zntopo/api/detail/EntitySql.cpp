#include "zntopo/api/detail/EntitySql.h"

#include "zntopo/api/detail/TypeTexts.h"
#include "zntopo/core/ltos.h"
#include "zntopo/store/detail/QuotedList.h"

namespace zntopo::detail {

namespace {

constexpr char kSelect[] =
    "select  ObjId,  EntityName,  IPLevel,  QRMObjId,  Description, "
    " EntityType,  ZoneNumber,  V6CompoundStatus,  V6GlobalStatus,  V6SiteStatus, "
    " StatusChangeTimeUTC,  CreateTimeUTC,  ChangeTimeUTC, "
    " hasDynamicProperty,  hasAddress, "
    " EntityOID, Status, RouteDistinguisher "
    "from  ";

const char* levelCondition(ZNEntity::IPLevel level) {
  switch (level) {
    case ZNEntity::IPv4:
      return "  IPLevel = 4 AND ";
    case ZNEntity::IPv6:
      return "  IPLevel = 6  AND ";
    default:
      return "";
  }
}

}  // namespace

std::string entitySelect(const TableSet& tables, const std::string& condition) {
  return kSelect + tables.nwentityTbl_ + " where " + condition;
}

std::string subnetsByIDs(const std::list<ObjID>& ids, bool isQRMID) {
  return quotedList(isQRMID ? " QRMObjID in (" : " ObjID in (", ids);
}

std::string allSubnets(ZNEntity::IPLevel level, int rd) {
  std::string condition = levelCondition(level);
  condition += std::string(" entityType =  ") + SUBNET_ENTITY_TYPE_STRING;
  if (rd >= 0) condition += "  AND RouteDistinguisher = " + ltos(rd);
  return condition;
}

std::string endPointsSql(const TableSet& tables, const ObjID& subnetID) {
  return "select a.AddressID, a.ObjID, b.ContainerObjID "
         "from " +
         tables.addressTbl_ + " a, " + tables.containmentTbl_ + " b where a.SubnetObjID = '" +
         subnetID.getStrValue() +
         "' and a.SubnetObjID <> a.ObjID "
         "and a.ObjID = b.ContainedObjID ";
}

std::string endPointsOfSubnetsSql(const TableSet& tables, const std::list<ObjID>& subnetIDs) {
  return "select a.AddressID, b.ObjID, b.NodeObjID, a.SubnetObjID "
         " from " +
         tables.addressTbl_ + " a, " + tables.nwinterfaceTbl_ + " b  where a.SubnetObjID in " +
         quotedList(" ( ", subnetIDs) +
         " and a.SubnetObjID <> a.ObjID "
         " and a.ObjID = b.ObjID ";
}

}  // namespace zntopo::detail
