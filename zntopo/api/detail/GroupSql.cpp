#include "zntopo/api/detail/GroupSql.h"

#include "zntopo/core/ltos.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/store/detail/QuotedList.h"

namespace zntopo::detail {

namespace {

std::string allIPv4(EntityType type) { return "  IPLevel = 4  AND  entityType =  " + ltos(type); }

std::string andEquals(const char* column, int rd) {
  return rd >= 0 ? column + ltos(rd) : std::string();
}

std::string idList(const std::list<ObjID>& ids) { return quotedList(" ( ", ids); }

}  // namespace

std::string allVlans(int rd) {
  return allIPv4(E_Vlan) + andEquals(" AND RouteDistinguisher = ", rd);
}

std::string allIfcs(int rd) { return andEquals(" RouteDistinguisher = ", rd); }

std::string allHSRPs(int rd) {
  return allIPv4(E_HSRP) + andEquals("  AND RouteDistinguisher = ", rd);
}

std::string ifcsOfType(int type, int rd) {
  const std::string limit = allIfcs(rd);
  return (limit.empty() ? "  IFCTYPE = " : limit + " AND IFCTYPE = ") + ltos(type);
}

std::string ifcEntitySelect(const TableSet& tables, const std::string& condition) {
  const std::string select =
      "select ObjId, EntityName, "
      " StatusChangeTimeUTC,  CreateTimeUTC,  ChangeTimeUTC, "
      " hasDynamicProperty,"
      " Description, ZoneNumber, "
      " RouteDistinguisher, "
      " Status "
      "from  " +
      tables.nwifcTbl_;
  return condition.empty() ? select : select + " where " + condition;
}

std::string ifcDataSql(const TableSet& tables, const ObjID& id) {
  return "select "
         " IFCType, isOrdered, AppsID "
         "from " +
         tables.nwifcTbl_ +
         " where  "
         "ObjID in " +
         idList({id});
}

std::string ifcAssociationsSql(const TableSet& tables, const ObjID& id) {
  return " select a.LeftIFContainerObjID, a.RightIFContainerObjID, a.RelType, a.LeftIfcType, "
         "a.RightIfcType, a.State, a.StateChangeTime, a.Description, a.ExtraInfo"
         " from " +
         tables.nwifcascTbl_ +
         " a where  "
         " a.LeftIFContainerObjId in " +
         idList({id}) + " or a.RightIFContainerObjId in " + idList({id});
}

std::string hsrpInfoSelect(const TableSet& tables, const std::list<ObjID>& ids, bool all) {
  if (!all) {
    return "select  AddressID, AddressIfObjID, ObjID, state, HSRPPriority,  HSRPNumber, "
           "TrackInterfaceList, HSRPStateCertainty"
           " from " +
           tables.hsrpaddressTbl_ +
           " where  "
           " ObjID in " +
           idList(ids);
  }
  return "select  a.AddressID, a.AddressIfObjID, a.ObjID, a.state, a.HSRPPriority,  a.HSRPNumber, "
         "a.TrackInterfaceList, a.HSRPStateCertainty"
         " from " +
         tables.hsrpaddressTbl_ + " a, " + tables.nwentityTbl_ +
         " b where  "
         " b.objid = a.objid and b.EntityType = " +
         ltos(E_HSRP);
}

std::string hsrpsByMemberSql(const TableSet& tables, const std::string& column, const ObjID& id) {
  return hsrpsByNothingSql(tables) + " " + column + " = '" + id.getStrValue() + "'";
}

std::string hsrpsByNothingSql(const TableSet& tables) {
  return "select ObjID from " + tables.hsrpaddressTbl_ + " where ";
}

}  // namespace zntopo::detail
