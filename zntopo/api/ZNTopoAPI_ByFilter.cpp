// Identifiers and nodes by attribute filters.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/AttributeFilterSql.h"
#include "zntopo/api/detail/ReadColumn.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

using detail::OperationScope;

namespace {

constexpr Column kObjID = textColumn("objid", 37);
constexpr LogLine kExecuting = {"Executing .. \n"};

constexpr detail::ColumnQuery kNodeQuery = {
    .column = kObjID,
    .texts = {.column = {ZN_API_SQL_BIND_COLUMN_ERROR,
                         "Problem binding values for getNodeIDsByFilter"},
              .executing = kExecuting},
    .nullLine = "Found Null data in retrieval of getNodeIDsByFilter\n",
};

constexpr detail::ColumnQuery kSubnetQuery = {
    .column = kObjID,
    .texts = {.column = {ZN_API_SQL_BIND_COLUMN_ERROR,
                         "Problem binding values for getSubnetIDsByFilter:", true},
              .exec = {ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command", true}},
    .nullLine = "Found Null data in retrieval of getSubnetIDsByFilter\n",
};

constexpr detail::ColumnQuery kEntityQuery = {
    .column = kObjID,
    .texts = {.column = {ZN_API_SQL_BIND_COLUMN_ERROR,
                         "Problem binding values for getEntityIDsByFilter"},
              .executing = kExecuting},
    .nullLine = "Found Null data in retrieval of getEntIDsByFilter\n",
};

}  // namespace

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getNodeIDsByFilter(const ZNTopoFilter& theFilter,
                                                               ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getNodeIDsByFilter");
  theStatus.reset();
  if (!validate(theStatus)) return std::make_unique<std::list<ObjID>>();
  const std::string sql = detail::nodesByFilterSql(*this, theFilter);
  MCLog::log(MC_INFO, "getNodeIDsByFilter SQL String: %s \n", sql.c_str());
  return detail::readColumn<ObjID>(sql, kNodeQuery, theStatus);
}

ZNTopoAPI_Impl::OwnedNodeList ZNTopoAPI_Impl::getNodesByFilter(const ZNTopoFilter& theFilter,
                                                               ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getNodesByFilter");
  const OwnedIDList ids = getNodeIDsByFilter(theFilter, theStatus);
  // One node at most: the other identifiers are dropped. Without any, the request for no node says
  // so, whatever the status was.
  ObjIDSet first;
  if (theStatus.isOK() && !ids->empty()) first.insert(ids->front());
  ObjIDSet notFound;
  OwnedNodeList nodes = getNodesByObjIDList(first, notFound, theStatus, false, false, false,
                                            ZNEntity::AllProtocol, -1);
  if (!theStatus.isOK()) {
    MCLog::log(MC_INFO, "Fail in  getNodesByObjIDList(),%s:%s\n ", theStatus.getStatusMsg().c_str(),
               theStatus.getAuxMsg().c_str());
  }
  return nodes;
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getSubnetIDsByFilter(const ZNTopoFilter& theFilter,
                                                                 ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getSubnetIDsByFilter");
  theStatus.reset();
  const std::string sql = detail::subnetsByFilterSql(*this, theFilter);
  MCLog::log(MC_INFO, "getSubnetIDsByFilter SQL String: %s \n", sql.c_str());
  return detail::readColumn<ObjID>(sql, kSubnetQuery, theStatus);
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getEntityIDsByFilter(const ZNTopoFilter& theFilter,
                                                                 ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getEntityIDsByFilter");
  theStatus.reset();
  const std::string sql = detail::entitiesByFilterSql(*this, theFilter);
  MCLog::log(MC_INFO, "getEntityIDsByFilter SQL String: %s \n", sql.c_str());
  return detail::readColumn<ObjID>(sql, kEntityQuery, theStatus);
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getAddressIDsByFilter(const ZNTopoFilter& theFilter,
                                                                  ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getAddressIDsByFilter");
  theStatus.reset();
  if (!validate(theStatus)) return std::make_unique<std::list<ObjID>>();
  const std::string sql = detail::addressesByFilterSql(*this, theFilter);
  MCLog::log(MC_INFO, "getAddressIDsByFilter SQL String: %s \n", sql.c_str());
  return getObjIDs(sql, theStatus);
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getAddressIDsByFilterNext(
    ZNTopoAPIStatus& /*theStatus*/) {
  return nullptr;
}

}  // namespace zntopo
