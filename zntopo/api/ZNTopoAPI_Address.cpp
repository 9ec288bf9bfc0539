// Addresses by identifier, by owner and by text, and their DNS names.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/AddressRow.h"
#include "zntopo/api/detail/AddressSql.h"
#include "zntopo/api/detail/CachedObjects.h"
#include "zntopo/api/detail/Grouping.h"
#include "zntopo/api/detail/ReadColumn.h"
#include "zntopo/api/detail/SingleObject.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/model/ZNRefPtrConversion.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

using AddressVector = std::vector<ZNRefPtr<ZNAddress>>;
using AddressMap = std::map<ObjID, ZNRefPtr<AddressVector>>;

// A failed column bind has a status of its own here, for which the callers look.
constexpr AccessTexts kAddressTexts = {
    .column = {ZN_API_ADDR_QUERY_FAILURE, "Problem binding values for Address"},
};

// A failure of the read stays as it is.
constexpr detail::SingleObjectTexts kByObjID = {.nullID = "Received a NULL Address ID as Input.",
                                                .afterID = " is not a valid Address ID"};

// The null identifier, too, is asked of the store.
constexpr detail::CachedKind<ZNAddress> kCachedByID = {
    .inCache = &ZNTopoCache::inAddressIDCache, .use = &ZNTopoCache::useAddress, .countsNull = true};
constexpr detail::CachedKind<ZNAddress> kCachedByQRMID = {
    .inCache = &ZNTopoCache::inAddressQRMIDCache, .use = &ZNTopoCache::useAddress};

constexpr detail::ColumnQuery kObjIDQuery = {
    .column = textColumn("ObjID", 66),
    .texts = {.column = {ZN_API_SQL_BIND_COLUMN_ERROR,
                         "Problem binding values for getObjIDs:", true},
              .exec = {ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command:", true}},
    .nullLine = "Found Null data in retrieval of getObjIDs\n",
};

constexpr detail::ColumnQuery kDnsNameQuery = {
    .column = textColumn("DNSName", 257),
    .texts = {.column = {ZN_API_SQL_BIND_COLUMN_ERROR,
                         "Problem binding values for resolveIPv6ToDNS"}},
    .nullLine = "Found Null data in retrieval of resolveIPv6ToDNS\n",
};

/// The texts of identifiers, sorted and each once, as the statement has them.
std::set<std::string> textsOf(const std::list<ObjID>& ids) {
  std::set<std::string> texts;
  for (const ObjID& id : ids) texts.insert(id.getStrValue());
  return texts;
}

/// Narrows an address that was found by an identifier to a monitored one.
ZNRefPtr<MonitoredInetAddressIPv6> monitoredOnly(const ZNRefPtr<ZNAddress>& address,
                                                 const ObjID& id, const char* complaint,
                                                 ZNTopoAPIStatus& theStatus) {
  if (!theStatus.isOK()) return {};
  auto monitored = ZNRefPtrConversion::Address2MonitoredIPv6(address);
  if (monitored.isNull()) {
    detail::setFailure(theStatus, ZN_API_INVALID_ID, id.getStrValue() + complaint);
  }
  return monitored;
}

}  // namespace

ZNTopoAPI_Impl::OwnedAddressVector ZNTopoAPI_Impl::getAddressesByWhereClause(
    const std::string& theWhereClause, const std::string& tblNames, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getAddressesByWhereClause");
  theStatus.reset();
  auto theAddresses = std::make_unique<AddressVector>();
  const std::string sql = detail::addressSelect(*this, theWhereClause, tblNames);
  MCLog::log(MC_INFO, "SQL : %s\n", sql.c_str());
  runQuery(sql, detail::kAddressColumns, kAddressTexts, theStatus, [&](const Row& row) {
    ZNRefPtr<ZNAddress> address;
    // A hit keeps an object from being built; whatever the row says now is not looked at.
    if (row.isPresent(detail::ADDR_AddressId) &&
        cache()->inAddressIDCache(ObjID(row.text(detail::ADDR_AddressId)), address)) {
      MCLog::log(MC_INFO, "FOUND ADDRESS IN CACHE! \n");
    } else {
      address = detail::addressFromRow(row, dbType_);
    }
    if (address.isNull()) return true;
    useAddress(address);
    theAddresses->push_back(address);
    return true;
  });
  return theAddresses;
}

ZNTopoAPI_Impl::OwnedAddressVector ZNTopoAPI_Impl::getAddrsByObjIDs(
    const std::list<ObjID>& theAddrObjIDs, ZNTopoAPIStatus& theStatus, bool getAllAddresses,
    ZNAddress::AddressType addrType) {
  const detail::OperationScope scope("getAddrsByObjIDs");
  theStatus.reset();
  auto theAddresses = std::make_unique<AddressVector>();
  if (!validate(theStatus)) return theAddresses;

  std::string theWhereClause = detail::addressesOfType(addrType);
  if (!getAllAddresses) {
    if (theAddrObjIDs.empty()) {
      theStatus.setStatus(ZN_API_EMPTY_OBJID_LIST);
      return theAddresses;
    }
    const auto missing = detail::takeCached(*cache(), kCachedByID, theAddrObjIDs, *theAddresses);
    if (missing.empty()) return theAddresses;
    theWhereClause = detail::addressesByIDs(textsOf(missing));
  }
  const auto read = getAddressesByWhereClause(theWhereClause, "", theStatus);
  if (theStatus.getStatus() == ZN_API_ADDR_QUERY_FAILURE) {
    detail::setFailure(theStatus, ZN_API_INVALID_ID, "All of the Address ObjID's were invalid");
    return theAddresses;
  }
  theAddresses->insert(theAddresses->end(), read->begin(), read->end());
  return theAddresses;
}

ZNRefPtr<ZNAddress> ZNTopoAPI_Impl::getAddressByObjID(const ObjID& theObjID,
                                                      ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getAddressByObjID");
  theStatus.reset();
  return detail::singleObject(theObjID, kByObjID, theStatus, [&] {
    return getAddrsByObjIDs({theObjID}, theStatus, false, ZNAddress::IPv4);
  });
}

ZNRefPtr<ZNAddress> ZNTopoAPI_Impl::getAddressByQRMObjID(const ObjID& theQRMObjID,
                                                         ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getAddressByQRMObjID");
  theStatus.reset();
  if (!validate(theStatus)) return {};
  if (theQRMObjID.isNull()) {
    detail::setFailure(theStatus, ZN_API_INVALID_ID, "Received a NULL Address ID as Input.");
    return {};
  }
  ZNRefPtr<ZNAddress> cached;
  if (detail::useCached(*cache(), kCachedByQRMID, theQRMObjID, cached)) return cached;
  const auto found = getAddressesByWhereClause(detail::addressByQRMID(theQRMObjID), "", theStatus);
  if (theStatus.getStatus() == ZN_API_ADDR_QUERY_FAILURE) {
    detail::setFailure(theStatus, ZN_API_ADDR_QUERY_FAILURE, "QRMObjiId not found in database.");
    return {};
  }
  if (!found->empty()) return found->front();
  detail::setFailure(theStatus, ZN_API_INVALID_ID,
                     theQRMObjID.getStrValue() + " is not a valid QRMObjID");
  return {};
}

ZNRefPtr<ZNAddress> ZNTopoAPI_Impl::getAddressByIP(const std::string& theIP,
                                                   ZNTopoAPIStatus& theStatus, int theRD) {
  const detail::OperationScope scope("getAddressByIP");
  theStatus.reset();
  if (theIP.empty()) {
    detail::setFailure(theStatus, ZN_API_ILLEGAL_INPUT, "Null IP ");
    MCLog::log(MC_INFO, "Error: input IP is empty\n");
    return {};
  }
  const auto found = getAddressesByWhereClause(detail::addressByIP(theIP, theRD), "", theStatus);
  if (!found->empty()) return found->front();
  detail::setFailure(theStatus, ZN_API_OBJ_NOT_EXIST, "No object found with the given IP");
  return {};
}

ZNTopoAPI_Impl::OwnedAddressMap ZNTopoAPI_Impl::getAddrsByAssociatedObjIDList(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, int mode) {
  const detail::OperationScope scope("getAddrsByAssociatedObjIDList");
  theStatus.reset();
  auto theMap = std::make_unique<AddressMap>();
  if (!validate(theStatus)) return theMap;
  if (theObjIDList.empty() && mode < detail::ADDRESSES_OF_ALL_INTERFACES) return theMap;

  const auto read = getAddressesByWhereClause(detail::addressesByOwners(theObjIDList, mode),
                                              detail::addressOwnerTables(*this, mode), theStatus);
  if (!theStatus.isOK()) return theMap;
  for (const ZNRefPtr<ZNAddress>& address : *read) {
    if (auto* group = detail::groupOf(*theMap, address->getAssEntityID())) {
      group->push_back(address);
    }
  }
  return theMap;
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getObjIDs(const std::string& sql,
                                                      ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getObjIDs");
  theStatus.reset();
  return detail::readColumn<ObjID>(sql, kObjIDQuery, theStatus);
}

std::unique_ptr<std::list<std::string>> ZNTopoAPI_Impl::resolveIPv6ToDNS(
    const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("resolveIPv6ToDNS");
  theStatus.reset();
  if (!validate(theStatus)) return std::make_unique<std::list<std::string>>();
  if (theObjID.isNull()) {
    detail::setFailure(theStatus, ZN_API_INVALID_ID, "Received a NULL Object ID as Input.");
    return std::make_unique<std::list<std::string>>();
  }
  const std::string sql = detail::dnsNamesSql(*this, theObjID);
  MCLog::log(MC_INFO, "resolveIPv6ToDNS SQL string: %s\n", sql.c_str());
  return detail::readColumn<std::string>(sql, kDnsNameQuery, theStatus);
}

ZNTopoAPI_Impl::OwnedIDList ZNTopoAPI_Impl::getInetAddressIPv6IDsFromDNSExpression(
    const std::string& theExpression, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getInetAddressIPv6IDsFromDNSExpression");
  theStatus.reset();
  if (!validate(theStatus)) return std::make_unique<std::list<ObjID>>();
  const std::string sql = detail::addressesByDnsNameSql(*this, theExpression);
  MCLog::log(MC_INFO, "getInetAddressIPv6IDsFromDNSExpression SQL String: %s \n", sql.c_str());
  return getObjIDs(sql, theStatus);
}

ZNRefPtr<MonitoredInetAddressIPv6> ZNTopoAPI_Impl::getMonitoredIPv6AddressByObjID(
    const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getMonitoredIPv6AddressByObjID");
  return monitoredOnly(getAddressByObjID(theObjID, theStatus), theObjID,
                       " is not a monitored IPv6 Address", theStatus);
}

ZNRefPtr<MonitoredInetAddressIPv6> ZNTopoAPI_Impl::getMonitoredIPv6AddressByQRMObjID(
    const ObjID& theQRMObjID, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getMonitoredIPv6AddressByQRMObjID");
  return monitoredOnly(getAddressByQRMObjID(theQRMObjID, theStatus), theQRMObjID,
                       " is not a monitored IPv6 QRM Object", theStatus);
}

}  // namespace zntopo
