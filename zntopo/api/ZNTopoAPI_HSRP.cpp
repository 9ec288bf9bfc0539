// The members of HSRP groups, and the groups of a member.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/GroupRows.h"
#include "zntopo/api/detail/GroupSql.h"
#include "zntopo/api/detail/ReadColumn.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/LogText.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

constexpr detail::ColumnQuery kHSRPIDQuery = {
    .column = textColumn("ObjID", 66),
    .texts = {.column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for HSRP ObjID"}},
};

std::string groupsOfMemberSql(const TableSet& tables, const ObjID& id,
                              ZNTopoAPI::GetHSRPObjIDsByIFAddressObjID_ObjType objType) {
  switch (objType) {
    case ZNTopoAPI::HSRP_Address:
      return detail::hsrpsByMemberSql(tables, "AddressID", id);
    case ZNTopoAPI::HSRP_Interface:
      return detail::hsrpsByMemberSql(tables, "AddressIFObjID", id);
    default:
      // Nobody can be asked for the groups that track an interface: the store refuses.
      return detail::hsrpsByNothingSql(tables);
  }
}

}  // namespace

ZNTopoAPI_Impl::OwnedHSRPInfoMap ZNTopoAPI_Impl::getHSRPInfosByObjIDList(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool getAllHSRPs) {
  const detail::OperationScope scope("getHSRPInfosByObjIDList");
  theStatus.reset();
  auto map = std::make_unique<OwnedHSRPInfoMap::element_type>();
  runQuery(detail::hsrpInfoSelect(*this, theObjIDList, getAllHSRPs), detail::kHSRPInfoColumns,
           detail::kHSRPInfoTexts, theStatus, [&map](const Row& row) {
             detail::addHSRPInfo(row, *map);
             return true;
           });
  return map;
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getHSRPObjIDsByIFAddressObjID(
    const ObjID& theObjID, ZNTopoAPI::GetHSRPObjIDsByIFAddressObjID_ObjType objType,
    ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getHSRPObjIDsByIFAddressObjID");
  theStatus.reset();
  auto ids = detail::readColumn<ObjID>(groupsOfMemberSql(*this, theObjID, objType), kHSRPIDQuery,
                                       theStatus);
  for (const ObjID& id : *ids) {
    detail::logLine(MC_INFO, "HSRP ID = %s\n", detail::shown(MC_INFO, id));
  }
  return ids;
}

}  // namespace zntopo
