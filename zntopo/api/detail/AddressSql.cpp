#include "zntopo/api/detail/AddressSql.h"

#include "zntopo/core/ltos.h"
#include "zntopo/store/detail/QuotedList.h"

namespace zntopo::detail {

namespace {

constexpr char kSelect[] =
    "select a.AddressId, a.ObjId, a.AddressType, a.isSubnet, a.SubnetObjId, "
    "a.V6Address, a.V6AddressBS, a.V6ScopeType, a.PrefixLength, a.V4Address, "
    "a.NodeObjId, a.DNSName, a.RouteDistinguisher,  "
    "a.AddressQRMId, a.PingStatus, a.V6AddressType, a.V6AddressNtmState, "
    "a.V6AddressStatus, a.LastPingTimeUTC, a.LastPingStateUpdTimeUTC, a.PubV4Address, a.PingState "
    "from ";

std::string mappingType() { return ltos(ZNAddress::IPV6_DNS); }

const char* columnOfIP(bool isIPv6, int rd) {
  if (isIPv6) return " a.V6Address = '";
  return rd < 0 ? " a.PubV4Address = '" : " a.V4Address = '";
}

}  // namespace

std::string addressSelect(const TableSet& tables, const std::string& condition,
                          const std::string& moreTables) {
  std::string sql = kSelect + tables.addressTbl_ + " a ";
  if (!moreTables.empty()) sql += ", " + moreTables;
  if (!condition.empty()) sql += " where " + condition;
  return sql;
}

std::string addressesByIDs(const std::set<std::string>& ids) {
  return quotedList(" AddressId in (", ids);
}

std::string addressesOfType(ZNAddress::AddressType type) { return " AddressType = " + ltos(type); }

std::string addressByQRMID(const ObjID& id) { return " AddressQRMID = '" + id.getStrValue() + "'"; }

std::string addressByIP(const std::string& ip, int rd) {
  const bool isIPv6 = ip.find(':') != std::string::npos;
  std::string condition = columnOfIP(isIPv6, rd) + ip + "'";
  if (rd > -1) condition += " and a.RouteDistinguisher = " + ltos(rd);
  return condition;
}

std::string addressesByOwners(const std::list<ObjID>& ids, int mode) {
  if (mode == ADDRESSES_OF_OWNERS) return quotedList(" a.ObjId in (", ids);
  if (mode == ADDRESSES_OF_NODES) {
    return quotedList(" a.ObjID = b.ObjID and  b.NodeObjId in (", ids);
  }
  return " a.ObjID = b.ObjID ";
}

std::string addressOwnerTables(const TableSet& tables, int mode) {
  return mode == ADDRESSES_OF_OWNERS ? std::string() : tables.nwinterfaceTbl_ + " b ";
}

std::string dnsNamesSql(const TableSet& tables, const ObjID& id) {
  return "select a.DNSName from " + tables.addressTbl_ + " a, " + tables.addressmappingTbl_ +
         " b where b.LeftAddressId = '" + id.getStrValue() +
         "' and b.RightAddressId = a.AddressId and b.AddressMappingType = " + mappingType();
}

std::string addressesByDnsNameSql(const TableSet& tables, const std::string& expression) {
  return "select a.LeftAddressId from " + tables.addressmappingTbl_ + "  a, " + tables.addressTbl_ +
         " b where a.AddressMappingType = " + mappingType() +
         " and b.AddressId = a.RightAddressId and b.DNSName like '" + expression + "'";
}

}  // namespace zntopo::detail
