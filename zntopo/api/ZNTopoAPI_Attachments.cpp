#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/AttachmentRows.h"
#include "zntopo/api/detail/AttachmentSql.h"
#include "zntopo/api/detail/Batches.h"
#include "zntopo/api/detail/Grouping.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

using detail::groupOf;
using detail::OperationScope;

namespace {

void logEmptyList() { MCLog::log(MC_INFO, " empty ObjID list ! \n"); }

/// Loads in batches; an entry that is there is not replaced by one of a later batch.
template <typename OwnedMap, typename Identifiers, typename Load>
OwnedMap loadInBatches(const Identifiers& ids, ZNTopoAPIStatus& status, const Load& load) {
  auto result = std::make_unique<typename OwnedMap::element_type>();
  detail::forEachBatch<std::list<ObjID>>(ids, ZNTopoAPI_Impl::NUM_NODE_PER_CALL,
                                         [&](const std::list<ObjID>& batch) {
                                           const OwnedMap part = load(batch);
                                           if (!status.isOK()) return false;
                                           result->merge(*part);
                                           return true;
                                         });
  return result;
}

/// Runs a loader's statement. The map is empty if it could not be prepared, else as far as it
/// came.
template <typename OwnedMap>
OwnedMap loadRows(OwnedMap map, const std::string& sql, ColumnList columns,
                  const AccessTexts& texts, ZNTopoAPIStatus& status, const RowHandler& onRow) {
  StoreAccess access(status, texts);
  if (!access.isConnected() || !access.prepare(sql)) {
    return std::make_unique<typename OwnedMap::element_type>();
  }
  if (access.bindColumns(columns) && access.exec()) access.fetch(onRow);
  return map;
}

}  // namespace

ZNTopoAPI_Impl::OwnedUserVarMap ZNTopoAPI_Impl::getUserDefVarsByObjIDList(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getUserDefVarsByObjIDList");
  theStatus.reset();
  auto nothing = std::make_unique<OwnedUserVarMap::element_type>();
  if (!validate(theStatus)) return nothing;
  if (theObjIDList.empty()) {
    detail::setFailure(theStatus, ZN_API_EMPTY_OBJID_LIST, "The UserDefVar ObjIDList is empty");
    return nothing;
  }
  // The whole list, not the batch, is asked for at each boundary.
  return loadInBatches<OwnedUserVarMap>(theObjIDList, theStatus, [&](const auto& /*batch*/) {
    return getUserDefVarsByObjIDList_Int(theObjIDList, theStatus, E_Unknown);
  });
}

ZNTopoAPI_Impl::OwnedUserVarMap ZNTopoAPI_Impl::getUserDefVarsByObjIDList_Int(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, EntityType eType) {
  const OperationScope scope("getUserDefVarsByObjIDList_Int");
  theStatus.reset();
  auto map = std::make_unique<OwnedUserVarMap::element_type>();
  auto& vars = *map;
  return loadRows(
      std::move(map),
      detail::userVarSelect(*this, eType, findTableNameFromEntityType(eType), theObjIDList),
      detail::kUserVarColumns, detail::kUserVarTexts, theStatus, [&vars](const Row& row) {
        if (auto* const owned = groupOf(vars, row.text(detail::U_ObjID)))
          detail::addUserVar(row, *owned);
        return true;
      });
}

ZNTopoAPI_Impl::OwnedConnDataMap ZNTopoAPI_Impl::getConnDatasByNodeObjIDList(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool getAll) {
  const OperationScope scope("getConnDatasByNodeObjIDList");
  theStatus.reset();
  if (getAll) return getConnDatasByNodeObjIDList_Int(theObjIDList, theStatus, true);
  if (theObjIDList.empty()) logEmptyList();
  return loadInBatches<OwnedConnDataMap>(theObjIDList, theStatus, [&](const auto& batch) {
    return getConnDatasByNodeObjIDList_Int(batch, theStatus, false);
  });
}

ZNTopoAPI_Impl::OwnedConnDataMap ZNTopoAPI_Impl::getConnDatasByNodeObjIDList_Int(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool getAll) {
  const OperationScope scope("getConnDatasByNodeObjIDList_Int");
  theStatus.reset();
  MCLog::log(MC_INFO, " getAll : %d ! \n", static_cast<int>(getAll));
  auto map = std::make_unique<detail::ConnDataMap>();
  if (!getAll && theObjIDList.empty()) {
    logEmptyList();
    return map;
  }
  for (const ObjID& id : theObjIDList) groupOf(*map, id);
  detail::ConnDataMap& connections = *map;
  return loadRows(std::move(map), detail::connDataSelect(*this, theObjIDList, getAll),
                  detail::kConnDataColumns, detail::kConnDataTexts, theStatus,
                  [&connections](const Row& row) {
                    detail::addConnData(row, connections);
                    return true;
                  });
}

ZNTopoAPI_Impl::OwnedVlanInfoMap ZNTopoAPI_Impl::getVlanInfosByObjIDList(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool useNodeAsKey,
    bool getAll) {
  const OperationScope scope("getVlanInfosByObjIDList");
  theStatus.reset();
  if (getAll) return getVlanInfosByObjIDList_Int({}, theStatus, useNodeAsKey, true);
  if (theObjIDList.empty()) logEmptyList();
  return loadInBatches<OwnedVlanInfoMap>(theObjIDList, theStatus, [&](const auto& batch) {
    return getVlanInfosByObjIDList_Int(batch, theStatus, useNodeAsKey, false);
  });
}

ZNTopoAPI_Impl::OwnedVlanInfoMap ZNTopoAPI_Impl::getVlanInfosByObjIDList_Int(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool useNodeAsKey,
    bool getAll) {
  const OperationScope scope("getVlanInfosByObjIDList_Int");
  theStatus.reset();
  TvDbil::DbilRdbmsVendor vendor = TvDbil::Unknown;
  if (!getAll) {
    // Only the optimiser's hint hangs on the vendor: the statement goes on without it.
    ZNTopoAPIStatus vendorStatus;
    getVendor(vendor, vendorStatus);
    if (!vendorStatus.isOK()) {
      MCLog::log(MC_MAJOR, " Failed to get vendorName.:%s:%d\n", "../ZNTopoAPI_Attachments",
                 __LINE__);
      vendor = TvDbil::Unknown;
    }
  }
  auto map = std::make_unique<detail::VlanInfoMap>();
  detail::VlanInfoMap& vlans = *map;
  return loadRows(
      std::move(map),
      detail::vlanInfoSelect(*this, theObjIDList, useNodeAsKey, getAll, vendor == TvDbil::Solid),
      detail::kVlanInfoColumns, detail::kVlanInfoTexts, theStatus,
      [&vlans, useNodeAsKey](const Row& row) {
        detail::addVlanInfo(row, useNodeAsKey, vlans);
        return true;
      });
}

ZNTopoAPI_Impl::OwnedIfcInfoMap ZNTopoAPI_Impl::getIfcInfosByObjIDList(const ObjIDSet& theObjIDs,
                                                                       ZNTopoAPIStatus& theStatus,
                                                                       bool useNodeAsKey,
                                                                       bool getAll, int IFCType) {
  const OperationScope scope("getIfcInfosByObjIDList");
  theStatus.reset();
  if (getAll) return getIfcInfosByObjIDList_Int({}, theStatus, useNodeAsKey, true, IFCType);
  if (theObjIDs.empty()) logEmptyList();
  return loadInBatches<OwnedIfcInfoMap>(theObjIDs, theStatus, [&](const auto& batch) {
    return getIfcInfosByObjIDList_Int(batch, theStatus, useNodeAsKey, false, IFCType);
  });
}

ZNTopoAPI_Impl::OwnedIfcInfoMap ZNTopoAPI_Impl::getIfcInfosByObjIDList_Int(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool useNodeAsKey,
    bool getAll, int IFCType) {
  const OperationScope scope("getIfcInfosByObjIDList_Int");
  theStatus.reset();
  auto map = std::make_unique<detail::IfcInfoMap>();
  detail::IfcInfoMap& containers = *map;
  return loadRows(std::move(map),
                  detail::ifcInfoSelect(*this, theObjIDList, useNodeAsKey, getAll, IFCType),
                  detail::kIfcInfoColumns, detail::kIfcInfoTexts, theStatus,
                  [&containers, useNodeAsKey](const Row& row) {
                    detail::addIfcInfo(row, useNodeAsKey, containers);
                    return true;
                  });
}

}  // namespace zntopo
