// Interfaces by identifier, by node, by name and by address. The big select is in
// ZNTopoAPI_InterfaceByWhere.cpp.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/Batches.h"
#include "zntopo/api/detail/CachedObjects.h"
#include "zntopo/api/detail/Grouping.h"
#include "zntopo/api/detail/InterfaceSql.h"
#include "zntopo/api/detail/NotDelivered.h"
#include "zntopo/api/detail/ReadColumn.h"
#include "zntopo/api/detail/SingleObject.h"
#include "zntopo/api/detail/WithoutNulls.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/LogText.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

using InterfaceList = std::list<ZNRefPtr<ZNInterface>>;

// Whatever kept the interface from being read, the caller is told of the identifier.
constexpr detail::SingleObjectTexts kByObjID = {.nullID = "Null Interface ID",
                                                .beforeID = "The ObjID: ",
                                                .afterID = " is not a valid ObjID in RZ ",
                                                .replacesFailure = true};

constexpr detail::CachedKind<ZNInterface> kCachedByID = {.useHeld = &ZNTopoCache::useHeldInterface,
                                                         .foundLine = "FOUND IF = %s IN CACHE! \n",
                                                         .idOf = &ZNInterface::getObjID};
constexpr detail::CachedKind<ZNInterface> kCachedByQRMID = {
    .inCache = &ZNTopoCache::inInterfaceQRMIDCache,
    .use = &ZNTopoCache::useInterface,
    .foundLine = "FOUND IF = %s IN QRM ID CACHE! \n",
    .idOf = &ZNInterface::getQRMObjID};

const detail::CachedKind<ZNInterface>& cachedBy(bool isQRMID) {
  return isQRMID ? kCachedByQRMID : kCachedByID;
}

constexpr char kListScope[] = "getInterfacesByObjIDList";
constexpr char kBatchScope[] = "getInterfacesByObjIDList_Int";
constexpr char kAllInCache[] = "Found all Interface in cache ! \n";

void logStatus(const ZNTopoAPIStatus& status) {
  MCLog::log(MC_CRITICAL, "Msg:%s, Aux:%s\n", status.getStatusMsg().c_str(),
             status.getAuxMsg().c_str());
}

enum InterfaceIDColumn : int { IFID_NodeObjID, IFID_ObjID, INTERFACE_ID_COLUMN_COUNT };
constexpr Column kInterfaceIDColumns[] = {textColumn("NodeObjID", 37), textColumn("ObjID", 37)};
static_assert(sizeof(kInterfaceIDColumns) / sizeof(Column) == INTERFACE_ID_COLUMN_COUNT);
constexpr AccessTexts kInterfaceIDTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR,
               "Problem binding values for getInterfaceIDsByNodeObjIDList"},
    .executing = {"Executing SQL: %s\n"},
    .executed = {"Execution done \n"},
};

constexpr detail::ColumnQuery kMeshQuery = {
    .column = textColumn("ContainerObjId", 66),
    .texts = {.column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for getMeshID"}},
};

constexpr Column kContainedColumns[] = {textColumn("ContainedObjId", 66)};
constexpr AccessTexts kContainedTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for getInterfacesByObjID"},
};

/// The first interface that a statement names; nobody asks whether it names one alone.
ZNRefPtr<ZNInterface> firstInterfaceOf(ZNTopoAPI_Impl& api, const std::string& sql,
                                       ZNTopoAPIStatus& theStatus) {
  MCLog::log(MC_INFO, "SQL is %s \n", sql.c_str());
  const auto ids = api.getObjIDListFromSQL(sql, theStatus);
  if (!theStatus.isOK()) return {};
  if (ids->empty()) {
    detail::setFailure(theStatus, ZN_API_OBJ_NOT_EXIST, "No object found with the given IP");
    MCLog::log(MC_INFO, "Error: No Interface found \n");
    return {};
  }
  return api.getInterfaceByObjID(ids->front(), theStatus);
}

}  // namespace

ZNRefPtr<ZNInterface> ZNTopoAPI_Impl::getInterfaceByObjID(const ObjID& theObjID,
                                                          ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getInterfaceByObjID");
  theStatus.reset();
  // What a request for a list of one does and logs, without the lists: an interface that the cache
  // holds costs no allocation.
  const auto request = [&]() -> ZNRefPtr<ZNInterface> {
    const detail::OperationScope list(kListScope);
    theStatus.reset();
    if (!validate(theStatus)) return {};
    const detail::OperationScope batch(kBatchScope);
    ZNRefPtr<ZNInterface> interface;
    if (detail::useCached(*cache(), kCachedByID, theObjID, interface)) {
      MCLog::log(MC_INFO, kAllInCache);
      return interface;
    }
    InterfaceList read;
    ObjIDSet notFound;
    readInterfaces({theObjID}, {theObjID}, read, notFound, theStatus, false);
    // A batch that failed, in a part of its interfaces at least, is left out of a list.
    return read.empty() || !theStatus.isOK() ? ZNRefPtr<ZNInterface>() : read.front();
  };
  return detail::singleObject(theObjID, kByObjID, theStatus, request);
}

ZNTopoAPI_Impl::OwnedInterfaceList ZNTopoAPI_Impl::getInterfacesByObjIDList(
    const ObjIDSet& theIFIDs, ObjIDSet& theNotFoundIDs, ZNTopoAPIStatus& theStatus, bool isQRMID,
    bool getAllConnectedInterfaces) {
  const detail::OperationScope scope(kListScope);
  theStatus.reset();
  auto theList = std::make_unique<InterfaceList>();
  if (!validate(theStatus)) return theList;
  if (getAllConnectedInterfaces) {
    return getInterfacesByObjIDList_Int(theIFIDs, theNotFoundIDs, theStatus, isQRMID, true);
  }
  if (theIFIDs.empty()) {
    detail::setFailure(theStatus, ZN_API_EMPTY_OBJID_LIST, "The InterfaceObjIDList is empty");
    return theList;
  }
  detail::forEachBatch<ObjIDSet>(theIFIDs, NUM_INTERFACE_PER_CALL, [&](const ObjIDSet& batch) {
    const auto part =
        getInterfacesByObjIDList_Int(batch, theNotFoundIDs, theStatus, isQRMID, false);
    if (!theStatus.isOK()) return false;
    theList->splice(theList->end(), *part);
    return true;
  });
  return theList;
}

ZNTopoAPI_Impl::OwnedInterfaceList ZNTopoAPI_Impl::getInterfacesByObjIDList_Int(
    const ObjIDSet& theIFIDs, ObjIDSet& theNotFoundIDs, ZNTopoAPIStatus& theStatus, bool isQRMID,
    bool getAllConnectedInterfaces) {
  const detail::OperationScope scope(kBatchScope);
  theNotFoundIDs.clear();
  auto theList = std::make_unique<InterfaceList>();
  if (getAllConnectedInterfaces) {
    MCLog::log(MC_INFO, "Retrieve all connected interface .. \n");
    theList =
        getInterfacesByWhereQuery(detail::whereConnected(), theStatus, detail::ALL_CONNECTED, {});
    MCLog::log(MC_INFO, "The NotFoundID list size = %d\n", 0);
    return theList;
  }
  if (theIFIDs.empty()) {
    MCLog::log(MC_CRITICAL, "getInterfacesByObjIDLIst() - empty list ! \n");
    return theList;
  }
  const std::list<ObjID> ifsToReadFromDB =
      detail::takeCached(*cache(), cachedBy(isQRMID), theIFIDs, *theList);
  if (theList->size() == theIFIDs.size()) {
    MCLog::log(MC_INFO, kAllInCache);
    return theList;
  }
  readInterfaces(ifsToReadFromDB, theIFIDs, *theList, theNotFoundIDs, theStatus, isQRMID);
  return theList;
}

void ZNTopoAPI_Impl::readInterfaces(const std::list<ObjID>& missing, const ObjIDSet& theIFIDs,
                                    InterfaceList& theList, ObjIDSet& theNotFoundIDs,
                                    ZNTopoAPIStatus& theStatus, bool isQRMID) {
  const auto read = getInterfacesByWhereQuery(detail::whereInterfaceIDs(missing, isQRMID),
                                              theStatus, detail::INTERFACES_BY_ID, missing);
  // Unlike nodes, interfaces merge: the cached ones first, those of the store behind.
  theList.splice(theList.end(), *read);
  if (theList.size() < theIFIDs.size()) {
    theNotFoundIDs = detail::notDelivered(theIFIDs, theList, cachedBy(isQRMID).idOf);
  }
  MCLog::log(MC_INFO, "The NotFoundID list size = %d\n", static_cast<int>(theNotFoundIDs.size()));
}

ZNTopoAPI_Impl::OwnedInterfaceList ZNTopoAPI_Impl::getInterfacesByNodeObjIDList(
    const std::list<ObjID>& theNodeIDs, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getInterfacesByNodeObjIDList");
  theStatus.reset();
  if (theNodeIDs.empty()) {
    MCLog::log(MC_TRACE_L2, "getInterfacesByNodesObjIDLIst() has empty Node ID list \n");
    return std::make_unique<InterfaceList>();
  }
  return getInterfacesByWhereQuery(detail::whereInterfacesOfNodes(detail::withoutNulls(theNodeIDs)),
                                   theStatus, detail::INTERFACES_BY_NODE, theNodeIDs);
}

ZNTopoAPI_Impl::OwnedInterfaceIDMap ZNTopoAPI_Impl::getInterfaceIDsByNodeObjIDList(
    const std::list<ObjID>& theNodeIDs, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getInterfaceIDsByNodeObjIDList");
  theStatus.reset();
  auto theMap = std::make_unique<std::map<ObjID, ZNRefPtr<std::set<ObjID>>>>();
  runQuery(detail::interfaceIDsOfNodesSql(*this, theNodeIDs), kInterfaceIDColumns,
           kInterfaceIDTexts, theStatus, [&](const Row& row) {
             MCLog::log(MC_INFO, "Fetch Node : %s, IF: %s \n", row.text(IFID_NodeObjID),
                        row.text(IFID_ObjID));
             if (!row.isPresent(IFID_NodeObjID) || !row.isPresent(IFID_ObjID)) {
               MCLog::log(MC_CRITICAL, "Node or IF ID is null ! Skip \n");
               return true;
             }
             if (auto* ids = detail::groupOf(*theMap, ObjID(row.text(IFID_NodeObjID)))) {
               ids->insert(ObjID(row.text(IFID_ObjID)));
             }
             return true;
           });
  return theMap;
}

ZNRefPtr<ZNInterface> ZNTopoAPI_Impl::getInterfaceByIPV4(const std::string& theIP,
                                                         ZNTopoAPIStatus& theStatus, int theRD) {
  const detail::OperationScope scope("getInterfaceByIPV4");
  theStatus.reset();
  if (theIP.empty()) {
    detail::setFailure(theStatus, ZN_API_ILLEGAL_INPUT, "Null IP Address");
    MCLog::log(MC_INFO, "Error: Null IP Address\n");
    return {};
  }
  return firstInterfaceOf(*this, detail::ownersOfIPv4Sql(*this, theIP, theRD), theStatus);
}

ZNRefPtr<ZNInterface> ZNTopoAPI_Impl::getInterfaceByIfName(const std::string& theName,
                                                           const std::string& theNodeName,
                                                           ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getInterfaceByIfName");
  theStatus.reset();
  if (theName.empty() || theNodeName.empty()) {
    detail::setFailure(theStatus, ZN_API_ILLEGAL_INPUT, "Null IfName or NodeName input");
    MCLog::log(MC_INFO, "Error: Null IfName or NodeName input\n");
    return {};
  }
  return firstInterfaceOf(*this, detail::interfacesByNameSql(*this, theName, theNodeName),
                          theStatus);
}

ObjID ZNTopoAPI_Impl::getMeshID(ObjID theIFObjID, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getMeshID");
  MCLog::log(MC_TRACE_L2, "Entering getMeshID() \n");
  theStatus.reset();
  const auto ids =
      detail::readColumn<ObjID>(detail::meshSql(*this, theIFObjID), kMeshQuery, theStatus);
  // The last one wins.
  const ObjID theID = ids->empty() ? ObjID() : ids->back();
  if (!theStatus.isOK()) return theID;
  if (theID.isNull()) {
    MCLog::log(MC_TRACE_L2, "getMeshID():theID is NULL\n");
  } else {
    MCLog::log(MC_TRACE_L2, "getMeshID():theID is %s \n",
               detail::shown(MC_TRACE_L2, theID).c_str());
  }
  MCLog::log(MC_TRACE_L2, "Exiting getMeshID() \n");
  return theID;
}

std::set<ObjID> ZNTopoAPI_Impl::getInterfacesByObjID(const ObjID& theObjID,
                                                     ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getInterfacesByObjID");
  MCLog::log(MC_TRACE_L2, "Entering getInterfacesByObjID() \n");
  theStatus.reset();
  StoreAccess access(theStatus, kContainedTexts);
  if (!access.isConnected() || !validate(theStatus)) return {};
  // The result is built from a list of entities that nothing fills: what the statement gives goes
  // nowhere. Callers live with the empty answer.
  access.run(detail::containedInterfacesSql(*this, theObjID), kContainedColumns,
             [](const Row& /*row*/) { return true; });
  return {};
}

std::list<ZNRefPtr<ZNInterface>> ZNTopoAPI_Impl::getMeshInterfaces(const ObjID& theObjID,
                                                                   ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getMeshInterfaces");
  MCLog::log(MC_TRACE_L2, "Entering getMeshInterfaces() \n");
  theStatus.reset();
  const StoreAccess access(theStatus);
  if (!access.isConnected()) return {};

  const std::set<ObjID> idList = getInterfacesByObjID(theObjID, theStatus);
  if (!theStatus.isOK()) {
    MCLog::log(MC_CRITICAL, "Error in getInterfacesByObjID(() \n");
    logStatus(theStatus);
    return {};
  }
  std::set<ObjID> theNotFoundIDs;
  const auto theList = getInterfacesByObjIDList(idList, theNotFoundIDs, theStatus, false, false);
  if (!theStatus.isOK()) {
    MCLog::log(MC_CRITICAL, "Error in getInterfacesByObjIDList() \n");
    logStatus(theStatus);
    return {};
  }
  return *theList;
}

}  // namespace zntopo
