// Interface containers by type, and what a container holds.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/EntitiesOfKind.h"
#include "zntopo/api/detail/GroupRows.h"
#include "zntopo/api/detail/GroupSql.h"
#include "zntopo/api/detail/IfcDetails.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

// The cache serves this request and gets nothing from it.
ZNTopoAPI_Impl::OwnedIfcList ZNTopoAPI_Impl::getIfcsByType(const int& theIfcType,
                                                           ZNTopoAPIStatus& theStatus, int aRD) {
  const detail::OperationScope scope("getIfcsByType");
  theStatus.reset();
  auto theIfcs = std::make_unique<std::list<ZNRefPtr<ZNIfc>>>();
  if (!validate(theStatus)) return theIfcs;
  auto cached = cache()->getTopoConfig().getIfcCacheSize() > 0 ? cache()->getAllIfcs() : nullptr;
  if (cached) {
    MCLog::log(MC_INFO, "Retrieve all Ifcs from cache\n");
    cached->remove_if(
        [&](const ZNRefPtr<ZNIfc>& container) { return container->getIfcType() != theIfcType; });
    return cached;
  }
  MCLog::log(MC_INFO, "Some Ifcs are not in cache, continue to get from DB\n");
  std::string condition = detail::ifcsOfType(theIfcType, aRD);
  const auto entities = getIfcEntitiesByWhereClause(condition, theStatus, false);
  *theIfcs = detail::entitiesOfKind<ZNIfc>(*entities, E_IfC);
  if (theStatus.isOK()) detail::loadIfcDetails(*this, *theIfcs, true, "getIfcsByType", theStatus);
  return theIfcs;
}

ZNTopoAPIStatus ZNTopoAPI_Impl::getIfcDataByObjID(const ObjID& theIfcID, int& ifcType, int& appsId,
                                                  bool& isOrdered, bool& cleanUpOnEmpty) {
  const detail::OperationScope scope("getIfcDataByObjID");
  ZNTopoAPIStatus status;
  // No column holds it.
  cleanUpOnEmpty = false;
  runQuery(detail::ifcDataSql(*this, theIfcID), detail::kIfcDataColumns, detail::kIfcDataTexts,
           status, [&](const Row& row) {
             ifcType = row.integer(detail::IFCD_Type);
             appsId = row.integer(detail::IFCD_AppsID);
             isOrdered = row.integer(detail::IFCD_isOrdered) != 0;
             return true;
           });
  return status;
}

ZNTopoAPIStatus ZNTopoAPI_Impl::getIfcAssocInfosByObjID(
    const ObjID& theIfcID, std::list<ZNRefPtr<ZNIfcAssocInfo>>& theList) {
  const detail::OperationScope scope("getIfcAssocInfosByObjID");
  ZNTopoAPIStatus status;
  runQuery(detail::ifcAssociationsSql(*this, theIfcID), detail::kIfcAssociationColumns,
           detail::kIfcDataTexts, status, [&theList](const Row& row) {
             theList.push_back(detail::ifcAssociationFromRow(row));
             return true;
           });
  return status;
}

}  // namespace zntopo
