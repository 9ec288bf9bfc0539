#include "zntopo/api/detail/AddressRow.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "zntopo/api/detail/RowValues.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/model/IPv4SubnetMask.h"
#include "zntopo/model/InetAddressDNS.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"

namespace zntopo::detail {

namespace {

bool arePresent(const Row& row, std::initializer_list<AddressColumn> columns) {
  return std::all_of(columns.begin(), columns.end(),
                     [&](AddressColumn column) { return row.isPresent(column); });
}

short presentShort(const Row& row, AddressColumn column, int absent = 0) {
  return static_cast<short>(presentInt(row, column, absent));
}

/// What has no default here reads as 0, an empty text or a null identifier where it is absent.
ZNRefPtr<ZNAddress> ipv4FromRow(const Row& row, TopoDBType dbType) {
  MCLog::log(MC_INFO, "Found V4 Address\n ");
  if (!row.isPresent(ADDR_V4Address)) {
    MCLog::log(MC_CRITICAL, "Invalid V4 Address %s :  Has null V4 Address value\n ",
               row.text(ADDR_AddressId));
    return {};
  }
  const int prefixLength = row.integer(ADDR_PrefixLength);
  const std::string maskAsString =
      IPv4SubnetMask(static_cast<unsigned short>(prefixLength)).getDecimalStr();
  MCLog::log(MC_VERBOSE, "InetAddressIPvV4 with prefix len[%d] mask[%s]\n", prefixLength,
             maskAsString.c_str());
  return new InetAddressIPv4(
      row.text(ADDR_V4Address), row.integer(ADDR_isSubnet) != 0, presentID(row, ADDR_AddressId),
      presentID(row, ADDR_ObjId), presentID(row, ADDR_SubnetObjId),
      static_cast<RouteDistinguisher>(row.integer(ADDR_RouteDistinguisher)), maskAsString,
      static_cast<PingState>(row.integer(ADDR_PingState)),
      row.integer(ADDR_LastPingStateUpdTimeUTC), row.text(ADDR_PubV4Address), dbType);
}

InetAddressIPv6 plainIPv6FromRow(const Row& row, TopoDBType dbType) {
  if (!arePresent(row, {ADDR_PrefixLength, ADDR_V6ScopeType, ADDR_V6Address})) {
    return InetAddressIPv6();
  }
  const std::string value = row.text(ADDR_V6Address);
  const auto scope = InetAddressIPv6::ShortToScopeType(presentShort(row, ADDR_V6ScopeType));
  const short prefix = presentShort(row, ADDR_PrefixLength);
  if (!row.isPresent(ADDR_isSubnet)) return InetAddressIPv6(value, scope, prefix, dbType);

  const bool isSubnet = row.integer(ADDR_isSubnet) != 0;
  if (!arePresent(row, {ADDR_SubnetObjId, ADDR_ObjId, ADDR_AddressId})) {
    return InetAddressIPv6(value, scope, prefix, isSubnet, dbType);
  }
  const ObjID addressID = row.text(ADDR_AddressId);
  const ObjID ownerID = row.text(ADDR_ObjId);
  const ObjID subnetID = row.text(ADDR_SubnetObjId);
  if (!row.isPresent(ADDR_RouteDistinguisher)) {
    return InetAddressIPv6(value, scope, prefix, isSubnet, addressID, ownerID, subnetID, dbType);
  }
  return InetAddressIPv6(value, scope, prefix, isSubnet, addressID, ownerID, subnetID,
                         static_cast<unsigned long>(row.integer(ADDR_RouteDistinguisher)), dbType);
}

/// Every IPv6 address comes as a monitored one.
ZNRefPtr<ZNAddress> ipv6FromRow(const Row& row, TopoDBType dbType) {
  using Monitored = MonitoredInetAddressIPv6;
  MCLog::log(MC_INFO, "Found V6 Address \n");
  const InetAddressIPv6 plain = plainIPv6FromRow(row, dbType);
  MCLog::log(MC_INFO, "MonitoredIPv6 Address with V6 and status info \n");
  const PingStatus pingStatus(ObjectStatus(row.integer(ADDR_PingStatus)),
                              row.integer(ADDR_LastPingTimeUTC),
                              row.integer(ADDR_LastPingStateUpdTimeUTC));
  return new Monitored(plain,
                       Monitored::ShortToIPv6NetToMediaState(
                           presentShort(row, ADDR_V6AddressNtmState, Monitored::Unknown)),
                       Monitored::ShortToIPv6AddrStatus(presentShort(
                           row, ADDR_V6AddressStatus, Monitored::UnknownIPv6AddrStatus)),
                       Monitored::ShortToIPv6AddrType(
                           presentShort(row, ADDR_V6AddressType, Monitored::UnknownIPv6AddrType)),
                       pingStatus, presentID(row, ADDR_AddressQRMId, ObjID("0")));
}

ZNRefPtr<ZNAddress> dnsFromRow(const Row& row, TopoDBType dbType) {
  MCLog::log(MC_INFO, "Found DNS Address\n ");
  if (!arePresent(row, {ADDR_isSubnet, ADDR_DNSName})) return {};
  const std::string name = row.text(ADDR_DNSName);
  const bool isSubnet = row.integer(ADDR_isSubnet) != 0;
  if (!arePresent(row, {ADDR_ObjId, ADDR_AddressId})) {
    return new InetAddressDNS(name, isSubnet, dbType);
  }
  const ObjID addressID = row.text(ADDR_AddressId);
  const ObjID ownerID = row.text(ADDR_ObjId);
  if (!row.isPresent(ADDR_RouteDistinguisher)) {
    return new InetAddressDNS(name, isSubnet, addressID, ownerID, dbType);
  }
  return new InetAddressDNS(name, isSubnet, addressID, ownerID,
                            static_cast<unsigned long>(row.integer(ADDR_RouteDistinguisher)),
                            dbType);
}

void logUnknownType(const Row& row) {
  MCLog::log(MC_INFO, "Retrieved address from Address Table\n");
  if (row.isPresent(ADDR_AddressId)) {
    MCLog::log(MC_INFO, "with unknown Address Type for Addr %s \n", row.text(ADDR_AddressId));
  } else {
    MCLog::log(MC_INFO, "with unknown Address Type/n");
  }
}

}  // namespace

ZNRefPtr<ZNAddress> addressFromRow(const Row& row, TopoDBType dbType) {
  switch (row.integer(ADDR_AddressType)) {
    case ZNAddress::IPv4:
      return ipv4FromRow(row, dbType);
    case ZNAddress::IPv6:
      return ipv6FromRow(row, dbType);
    case ZNAddress::DNS:
      return dnsFromRow(row, dbType);
    default:
      logUnknownType(row);
      return {};
  }
}

}  // namespace zntopo::detail
