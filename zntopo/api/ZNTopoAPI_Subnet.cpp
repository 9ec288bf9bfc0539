// Subnets and their end points.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/CachedObjects.h"
#include "zntopo/api/detail/EntitiesOfKind.h"
#include "zntopo/api/detail/EntitySql.h"
#include "zntopo/api/detail/Grouping.h"
#include "zntopo/api/detail/ObjectsRead.h"
#include "zntopo/api/detail/SingleObject.h"
#include "zntopo/api/detail/WithoutNulls.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/model/SubnetEndPoint.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

using EndPointList = std::list<SubnetEndPoint>;
using EndPointMap = std::map<ObjID, ZNRefPtr<EndPointList>>;

// A failure of the read stays as it is.
constexpr detail::SingleObjectTexts kByObjID = {
    .nullID = "Null QRM Object ID entered. ",
    .beforeID = "getSubnetsByObjIDList - no subnet retrieve ",
    .givesIncomplete = true};
constexpr detail::SingleObjectTexts kByQRMObjID = {
    .nullID = "Null QRM Object ID entered. ",
    .beforeID = "getSubnetsByObjIDList - no subnet retrieve",
    .givesIncomplete = true};

constexpr detail::CachedKind<ZNSubnet> kCachedByID = {
    .inCache = &ZNTopoCache::inSubnetIDCache,
    .use = &ZNTopoCache::useSubnet,
    .foundLine = "FOUND Subnet = %s IN CACHE! \n"};
constexpr detail::CachedKind<ZNSubnet> kCachedByQRMID = {
    .inCache = &ZNTopoCache::inSubnetQRMIDCache, .use = &ZNTopoCache::useSubnet};

/// The columns of both end point statements; that of one subnet has not the last one.
enum EndPointColumn : int { EP_Address, EP_Interface, EP_Node, EP_Subnet, END_POINT_COLUMN_COUNT };

constexpr Column kEndPointColumns[] = {textColumn("AddressID", 66), textColumn("ObjID", 66),
                                       textColumn("ContainerObjID", 66)};
static_assert(sizeof(kEndPointColumns) / sizeof(Column) == EP_Subnet);
constexpr Column kEndPointOfSubnetsColumns[] = {
    textColumn("AddressID", 66), textColumn("ObjID", 66), textColumn("NodeObjID", 66),
    textColumn("SubnetObjID", 66)};
static_assert(sizeof(kEndPointOfSubnetsColumns) / sizeof(Column) == END_POINT_COLUMN_COUNT);

constexpr AccessTexts kEndPointTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for SubnetEndPoints:", true},
    .exec = {ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command", true},
};
constexpr AccessTexts kEndPointOfSubnetsTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for SubnetEndPoints: ", true},
    .exec = {ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command: ", true},
    .preparing = {"SQL - %s \n"},
};

/// Appends the end point of a row to the list that listOf() gives; a row that lacks a part is
/// left out.
template <typename ListOf>
void addEndPoint(const Row& row, const ListOf& listOf) {
  if (!row.isPresent(EP_Address) || !row.isPresent(EP_Interface) || !row.isPresent(EP_Node)) {
    MCLog::log(MC_INFO, "Found Null data in retrieval of SubnetEndPoints\n");
    return;
  }
  if (EndPointList* const points = listOf()) {
    points->emplace_back(row.text(EP_Node), row.text(EP_Interface), row.text(EP_Address));
  }
}

}  // namespace

ZNTopoAPI_Impl::OwnedSubnetList ZNTopoAPI_Impl::getSubnetsByObjIDList(
    const ObjIDSet& theSubnetIDs, ZNTopoAPIStatus& theStatus, bool isQRMID, bool getAllSubnets,
    ZNEntity::IPLevel ipLevel, int aRD) {
  const detail::OperationScope scope("getSubnetsByObjIDList");
  theStatus.reset();
  auto theSubnets = std::make_unique<std::list<ZNRefPtr<ZNSubnet>>>();
  if (!validate(theStatus)) return theSubnets;

  std::string condition = detail::allSubnets(ipLevel, aRD);
  if (!getAllSubnets) {
    if (theSubnetIDs.empty()) {
      detail::setFailure(theStatus, ZN_API_EMPTY_OBJID_LIST, "Input ObjID List is empty");
      return theSubnets;
    }
    const auto missing = isQRMID
                             ? detail::withoutNulls(theSubnetIDs)
                             : detail::takeCached(*cache(), kCachedByID, theSubnetIDs, *theSubnets);
    if (theSubnets->size() == theSubnetIDs.size()) {
      MCLog::log(MC_INFO, "Found all Subnet in cache ! \n");
      return theSubnets;
    }
    condition = detail::subnetsByIDs(missing, isQRMID);
  }
  const auto entities = getEntitiesByWhereClause(condition, theStatus, true);
  if (!theStatus.isOK()) {
    MCLog::log(MC_CRITICAL, "getEntitiesByWhereClase() - error ! ");
    return theSubnets;
  }
  auto read = detail::entitiesOfKind<ZNSubnet>(*entities, E_Subnet);
  const auto endPoints = getSubnetEndPointsByObjIDList(detail::idsOf(read), theStatus);
  if (theStatus.isOK()) {
    detail::handOut(read, *endPoints, &ZNSubnet::setSubnetEndPointList);
  } else {
    MCLog::log(MC_CRITICAL, "getSubnetEndPointsByObjIDLIst - error !\n");
  }
  // The cache is not offered what was read here.
  theSubnets->splice(theSubnets->end(), read);
  return theSubnets;
}

ZNRefPtr<ZNSubnet> ZNTopoAPI_Impl::singleSubnet(const ObjID& theID, bool isQRMID,
                                                ZNTopoAPIStatus& theStatus) {
  return detail::singleObject(theID, isQRMID ? kByQRMObjID : kByObjID, theStatus, [&] {
    auto subnets = getSubnetsByObjIDList({theID}, theStatus, isQRMID, false, ZNEntity::IPv6, -1);
    if (!theStatus.isOK()) MCLog::log(MC_CRITICAL, "getSubnetsByObjIDList - error ! \n");
    return subnets;
  });
}

ZNRefPtr<ZNSubnet> ZNTopoAPI_Impl::getSubnetByObjID(const ObjID& theObjID,
                                                    ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getSubnetByObjID");
  theStatus.reset();
  return singleSubnet(theObjID, false, theStatus);
}

ZNRefPtr<ZNSubnet> ZNTopoAPI_Impl::getSubnetByQRMObjID(const ObjID& theQRMObjID,
                                                       ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getSubnetByQRMObjID");
  theStatus.reset();
  ZNRefPtr<ZNSubnet> cached;
  if (!theQRMObjID.isNull() && detail::useCached(*cache(), kCachedByQRMID, theQRMObjID, cached)) {
    return cached;
  }
  return singleSubnet(theQRMObjID, true, theStatus);
}

std::list<SubnetEndPoint> ZNTopoAPI_Impl::getSubnetEndPoints(ZNEntity& theEntity,
                                                             ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getSubnetEndPoints");
  theStatus.reset();
  EndPointList points;
  runQuery(detail::endPointsSql(*this, theEntity.getObjID()), kEndPointColumns, kEndPointTexts,
           theStatus, [&points](const Row& row) {
             addEndPoint(row, [&points] { return &points; });
             return true;
           });
  return points;
}

ZNTopoAPI_Impl::OwnedEndPointMap ZNTopoAPI_Impl::getSubnetEndPointsByObjIDList(
    const std::list<ObjID>& theSubnetIDs, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getSubnetEndPointsByObjIDList");
  theStatus.reset();
  auto map = std::make_unique<EndPointMap>();
  if (theSubnetIDs.empty()) {
    MCLog::log(MC_TRACE_L2, "getSubnetEndPointsByObjIDLIst() has empty  ID list \n");
    return map;
  }
  runQuery(detail::endPointsOfSubnetsSql(*this, detail::withoutNulls(theSubnetIDs)),
           kEndPointOfSubnetsColumns, kEndPointOfSubnetsTexts, theStatus, [&map](const Row& row) {
             addEndPoint(row, [&] { return detail::groupOf(*map, ObjID(row.text(EP_Subnet))); });
             return true;
           });
  return map;
}

}  // namespace zntopo
