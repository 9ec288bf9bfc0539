#include "zntopo/api/detail/StatisticSql.h"

#include "zntopo/core/ltos.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/model/ZNAddress.h"

namespace zntopo::detail {

namespace {

constexpr const char* kAtIPv4 = " where IPLevel = 4 ";
constexpr const char* kAtIPv6 = " where IPLevel = 6 ";

std::string objects(const TableSet& tables, EntityType type, const char* more = "") {
  return "select count(*) from " + tables.nwentityTbl_ + " where entitytype = " + ltos(type) + more;
}

std::string addresses(const TableSet& tables, ZNAddress::AddressType type) {
  return "select count(*) from " + tables.addressTbl_ + " where addresstype = " + ltos(type);
}

}  // namespace

std::array<std::string, kStatistics> statisticSelects(const TableSet& tables) {
  const std::string nodes = "select count(*) from " + tables.nwnodeTbl_;
  const std::string interfaces = "select count(*) from " + tables.nwinterfaceTbl_;
  return {
      nodes,
      nodes + kAtIPv4,
      nodes + kAtIPv6,
      nodes + " where sysoid <> '-' ",
      interfaces,
      interfaces + kAtIPv4,
      interfaces + kAtIPv6,
      objects(tables, E_Vlan),
      objects(tables, E_Subnet, "  and IPLevel = 6 "),
      objects(tables, E_Subnet, " and IPLevel = 4 "),
      objects(tables, E_HSRP),
      objects(tables, E_Mesh),
      addresses(tables, ZNAddress::IPv4),
      addresses(tables, ZNAddress::IPv6),
      addresses(tables, ZNAddress::DNS),
      "select count(*) from " + tables.nwinterfaceassociationTbl_ + " where reltype = 1",
  };
}

std::string nodesByRDSelect(const TableSet& tables) {
  return "select V4ManagementAddressRD, count(*) from " + tables.nwnodeTbl_ +
         " group by V4ManagementAddressRD  order by V4ManagementAddressRD ";
}

}  // namespace zntopo::detail
