#pragma once

#include <array>
#include <string>

#include "zntopo/store/TableSet.h"

namespace zntopo::detail {

/// What the statistics count, in the order in which it is counted.
enum Statistic : int {
  CountNodes,
  CountIPv4Nodes,
  CountIPv6Nodes,
  CountV4SnmpNodes,
  CountInterfaces,
  CountIPv4Interfaces,
  CountIPv6Interfaces,
  CountVlans,
  CountPrefixGroups,
  CountSubnets,
  CountHSRPs,
  CountMeshes,
  CountV4Addresses,
  CountV6Addresses,
  CountDNSNames,
  CountL2Links,
};
constexpr int kStatistics = CountL2Links + 1;

/// The statements that count, each with one number as its result. Blanks are part of them.
std::array<std::string, kStatistics> statisticSelects(const TableSet& tables);
/// How many nodes each route distinguisher has.
std::string nodesByRDSelect(const TableSet& tables);

}  // namespace zntopo::detail
