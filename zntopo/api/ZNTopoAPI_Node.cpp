#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/Batches.h"
#include "zntopo/api/detail/CachedObjects.h"
#include "zntopo/api/detail/FilterDocument.h"
#include "zntopo/api/detail/NodeSql.h"
#include "zntopo/api/detail/NotDelivered.h"
#include "zntopo/api/detail/ReadColumn.h"
#include "zntopo/api/detail/SingleObject.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

using detail::NodeNameClass;
using detail::OperationScope;
using detail::setFailure;

namespace {

// Whatever kept the node from being read, the caller is told of the identifier.
constexpr detail::SingleObjectTexts kByObjID = {.nullID = "Null Node ID",
                                                .beforeID = "The ObjID: ",
                                                .afterID = " is not a valid ObjID in RZ ",
                                                .replacesFailure = true};
constexpr detail::SingleObjectTexts kByQRMObjID = {.nullID = "Null QRM Node ID",
                                                   .beforeID = "The QRMObjID: ",
                                                   .afterID = " is not a valid QRMObjID in RZ",
                                                   .replacesFailure = true};

constexpr detail::CachedKind<ZNNode> kCachedByID = {.useHeld = &ZNTopoCache::useHeldNode,
                                                    .foundLine = "FOUND Node = %s IN CACHE! \n",
                                                    .idOf = &ZNNode::getObjID};
constexpr detail::CachedKind<ZNNode> kCachedByQRMID = {.inCache = &ZNTopoCache::inNodeQRMIDCache,
                                                       .use = &ZNTopoCache::useNode,
                                                       .foundLine = "FOUND Node = %s IN CACHE! \n",
                                                       .idOf = &ZNNode::getQRMObjID};

const detail::CachedKind<ZNNode>& cachedBy(bool isQRMID) {
  return isQRMID ? kCachedByQRMID : kCachedByID;
}

constexpr char kListScope[] = "getNodesByObjIDList";
constexpr char kBatchScope[] = "getNodesByObjIDList_Int";
constexpr char kAllInCache[] = "Found all node in cache ! \n";
constexpr char kNoNodeIDs[] = "The NodeObjIDList is empty";

const char* classLabel(NodeNameClass nameClass) {
  switch (nameClass) {
    case NodeNameClass::Uuid:
      return "UUID";
    case NodeNameClass::IPv4:
      return "IPv4";
    case NodeNameClass::FullDns:
      return "full DNSName";
    case NodeNameClass::IPv6:
      return "IPV6 Address";
    case NodeNameClass::PartialDns:
      return "partial DNSName";
  }
  return "";
}

void setLoggedFailure(ZNTopoAPIStatus& status, ZNTopoStatus code, const std::string& text) {
  MCLog::log(MC_INFO, "%s\n", text.c_str());
  setFailure(status, code, text);
}

/// The one identifier of a list, or null with the status set.
ObjID theOnlyID(const std::list<ObjID>& ids, const std::string& name, ZNTopoAPIStatus& status) {
  if (ids.size() == 1) return ids.front();
  if (ids.empty()) {
    setLoggedFailure(status, ZN_API_OBJ_NOT_EXIST, "ObjID for node [" + name + "] not found.");
  } else {
    setLoggedFailure(status, ZN_API_NONUNIQUE_NAME, "Node [" + name + "] is not unique");
  }
  return {};
}

constexpr detail::ColumnQuery kIDListQuery = {
    .column = textColumn("ObjID", 37),
    .texts = {.statement = {.status = ZN_API_SQL_BIND_STATEMENT_ERROR,
                            .text = "Unable to bind SQL Statement: ",
                            .withSql = true,
                            .log = {"Failed to bind SQL Statement \n", MC_MAJOR}},
              .column = {.status = ZN_API_SQL_BIND_COLUMN_ERROR,
                         .text = "Problem binding values for getObjIDListFromSQL()",
                         .log = {"Problem binding values for", MC_CRITICAL}},
              .exec = {.status = ZN_API_SQL_EXEC_ERROR,
                       .text = "Problem Executing SQL Command",
                       .log = {"Problem executing SQL Command: %s\n", MC_CRITICAL}},
              .preparing = {"SQL : %s \n"}},
};

}  // namespace

ZNRefPtr<ZNNode> ZNTopoAPI_Impl::getNodeByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getNodeByObjID");
  return singleNode(theObjID, false, theStatus);
}

ZNRefPtr<ZNNode> ZNTopoAPI_Impl::getNodeByQRMObjID(const ObjID& theQRMObjID,
                                                   ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getNodeByQRMObjID");
  return singleNode(theQRMObjID, true, theStatus);
}

ZNRefPtr<ZNNode> ZNTopoAPI_Impl::singleNode(const ObjID& id, bool isQRMID,
                                            ZNTopoAPIStatus& theStatus) {
  theStatus.reset();
  // What a request for a list of one does and logs, without the lists: a node that the cache holds
  // costs no allocation.
  const auto request = [&]() -> ZNRefPtr<ZNNode> {
    const OperationScope list(kListScope);
    theStatus.reset();
    if (!validate(theStatus)) return {};
    const OperationScope batch(kBatchScope);
    ZNRefPtr<ZNNode> node;
    if (detail::useCached(*cache(), cachedBy(isQRMID), id, node)) {
      MCLog::log(MC_INFO, kAllInCache);
      return node;
    }
    ObjIDSet notFound;
    node = detail::firstOf(readNodes({id}, {id}, notFound, theStatus, isQRMID));
    // A batch that failed, in a part of its nodes at least, is left out of a list.
    return theStatus.isOK() ? node : ZNRefPtr<ZNNode>();
  };
  return detail::singleObject(id, isQRMID ? kByQRMObjID : kByObjID, theStatus, request);
}

ZNTopoAPI_Impl::OwnedNodeList ZNTopoAPI_Impl::getNodesByObjIDList(
    const ObjIDSet& theNodeIDs, ObjIDSet& theNotFoundIDs, ZNTopoAPIStatus& theStatus,
    bool toGetInterfaces, bool isQRMID, bool getAllNodes, ZNEntity::IPLevel ipLevel, int aRD) {
  const OperationScope scope(kListScope);
  auto result = std::make_unique<std::list<ZNRefPtr<ZNNode>>>();
  theStatus.reset();
  if (!validate(theStatus)) return result;
  if (!getAllNodes && theNodeIDs.empty()) {
    setFailure(theStatus, ZN_API_EMPTY_OBJID_LIST, kNoNodeIDs);
    return result;
  }
  if (getAllNodes) {
    return getNodesByObjIDList_Int(theNodeIDs, theNotFoundIDs, theStatus, toGetInterfaces, isQRMID,
                                   getAllNodes, ipLevel, aRD);
  }
  detail::forEachBatch<ObjIDSet>(theNodeIDs, NUM_NODE_PER_CALL, [&](const ObjIDSet& batch) {
    const OwnedNodeList nodes = getNodesByObjIDList_Int(
        batch, theNotFoundIDs, theStatus, toGetInterfaces, isQRMID, getAllNodes, ipLevel, -1);
    if (!theStatus.isOK()) return false;
    result->splice(result->end(), *nodes);
    return true;
  });
  return result;
}

ZNTopoAPI_Impl::OwnedNodeList ZNTopoAPI_Impl::getNodesByObjIDList_Int(
    const ObjIDSet& theNodeIDs, ObjIDSet& theNotFoundIDs, ZNTopoAPIStatus& theStatus,
    bool /*toGetInterfaces*/, bool isQRMID, bool getAllNodes, ZNEntity::IPLevel ipLevel, int aRD) {
  const OperationScope scope(kBatchScope);
  auto result = std::make_unique<std::list<ZNRefPtr<ZNNode>>>();
  theStatus.reset();
  theNotFoundIDs.clear();
  if (!getAllNodes && theNodeIDs.empty()) {
    setFailure(theStatus, ZN_API_EMPTY_OBJID_LIST, kNoNodeIDs);
    return result;
  }
  if (getAllNodes) {
    MCLog::log(MC_INFO, "RD = %d \n", aRD);
    const std::string condition = detail::allNodesCondition(ipLevel, aRD);
    MCLog::log(MC_INFO, "SQL Statement: %s \n", condition.c_str());
    result = getNodesByWhere(condition, detail::nodeTables(*this), theStatus, true);
    MCLog::log(MC_INFO, "The NotFoundID list size = %d\n", 0);
    return result;
  }
  const std::list<ObjID> missing =
      detail::takeCached(*cache(), cachedBy(isQRMID), theNodeIDs, *result);
  if (result->size() == theNodeIDs.size()) {
    MCLog::log(MC_INFO, kAllInCache);
    return result;
  }
  // What is read replaces what the cache had: the cached nodes count as not found.
  return readNodes(missing, theNodeIDs, theNotFoundIDs, theStatus, isQRMID);
}

ZNTopoAPI_Impl::OwnedNodeList ZNTopoAPI_Impl::readNodes(const std::list<ObjID>& missing,
                                                        const ObjIDSet& theNodeIDs,
                                                        ObjIDSet& theNotFoundIDs,
                                                        ZNTopoAPIStatus& theStatus, bool isQRMID) {
  const std::string condition = detail::nodeIDCondition(missing, isQRMID);
  MCLog::log(MC_INFO, "ObjIDs to be retrieve from DB : %s\n", condition.c_str());
  MCLog::log(MC_INFO, "SQL Statement: %s \n", condition.c_str());
  OwnedNodeList nodes = getNodesByWhere(condition, detail::nodeTables(*this), theStatus, false);
  theNotFoundIDs = detail::notDelivered(theNodeIDs, *nodes, cachedBy(isQRMID).idOf);
  MCLog::log(MC_INFO, "The NotFoundID list size = %d\n", static_cast<int>(theNotFoundIDs.size()));
  return nodes;
}

ZNRefPtr<ZNNode> ZNTopoAPI_Impl::getNodeByName(const std::string& theName,
                                               ZNTopoAPIStatus& theStatus, int theRD) {
  const OperationScope scope("getNodeByName");
  theStatus.reset();
  if (theName.empty()) {
    setFailure(theStatus, ZN_API_ILLEGAL_INPUT, "Null Node Name");
    MCLog::log(MC_INFO, "Error: input name is empty\n");
    return {};
  }
  const NodeNameClass nameClass = detail::classifyNodeName(theName);
  MCLog::log(MC_INFO, "Found %s = %s \n", classLabel(nameClass), theName.c_str());
  ObjID id(theName);
  if (nameClass != NodeNameClass::Uuid) {
    const std::string sql = detail::nodeNameSelect(nameClass, *this, theName, theRD);
    MCLog::log(MC_INFO, "SQL is %s \n", sql.c_str());
    const OwnedIDList ids = getObjIDListFromSQL(sql, theStatus);
    if (!theStatus.isOK()) return {};
    id = theOnlyID(*ids, theName, theStatus);
    if (!theStatus.isOK()) return {};
  }
  MCLog::log(MC_INFO, "ID:%s\n", id.getStrValue().c_str());
  ObjIDSet notFound;
  const OwnedNodeList nodes =
      getNodesByObjIDList({id}, notFound, theStatus, true, false, false, ZNEntity::AllProtocol, -1);
  if (!theStatus.isOK()) return {};
  if (!nodes->empty()) return nodes->front();
  setLoggedFailure(theStatus, ZN_API_OBJ_NOT_EXIST,
                   "Node [" + theName + "] not found for objid [" + id.getStrValue() + "].");
  return {};
}

ZNTopoAPI_Impl::OwnedNodeList ZNTopoAPI_Impl::getNodesByRXName(const std::string& theName,
                                                               ZNTopoAPIStatus& theStatus,
                                                               int theRD) {
  const OperationScope scope("getNodesByRXName");
  theStatus.reset();
  if (theName.empty()) {
    setFailure(theStatus, ZN_API_ILLEGAL_INPUT, "Null Node Name");
    return std::make_unique<std::list<ZNRefPtr<ZNNode>>>();
  }
  const ObjID id(theName);
  if (id.getIDType() == ObjID::E_MsUuid) {
    MCLog::log(MC_INFO, "Found UUID = %s \n", theName.c_str());
    ObjIDSet notFound;
    return getNodesByObjIDList({id}, notFound, theStatus, false, false, false,
                               ZNEntity::AllProtocol, -1);
  }
  const std::string filter = detail::nodeFilterDocument(theName, theRD);
  MCLog::log(MC_INFO, "Filter is %s \n", filter.c_str());
  OwnedNodeList nodes = ParseAndGetNodesByTopoFilter(filter, "op1", theStatus);
  if (theStatus.isOK() && nodes->empty()) {
    setFailure(theStatus, ZN_API_OBJ_NOT_EXIST, "No object found with the given name");
    MCLog::log(MC_INFO, "Error: input name is empty\n");
  }
  return nodes;
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getObjIDListFromSQL(const std::string& theSQL,
                                                                ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getObjIDListFromSQL");
  theStatus.reset();
  return detail::readColumn<ObjID>(theSQL, kIDListQuery, theStatus);
}

}  // namespace zntopo
