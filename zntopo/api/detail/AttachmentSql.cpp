#include "zntopo/api/detail/AttachmentSql.h"

#include "zntopo/api/detail/TypeTexts.h"
#include "zntopo/core/ltos.h"
#include "zntopo/store/detail/QuotedList.h"

namespace zntopo::detail {

namespace {

std::string idList(const std::list<ObjID>& ids) { return quotedList(" ( ", ids); }

}  // namespace

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

}  // namespace zntopo::detail
