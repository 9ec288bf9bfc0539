#pragma once

#include <string>

#include "zntopo/api/ZNTopoFilter.h"
#include "zntopo/store/TableSet.h"

/// @file
/// The statements of the attribute filters, as texts. Blanks are part of them. The values of a
/// filter go in as they stand: they are patterns of "like", and nothing is escaped.

namespace zntopo::detail {

/// The nodes of a filter. One with an IPv4 address asks for the address alone and, if it has them,
/// for capabilities, which no engine takes there.
std::string nodesByFilterSql(const TableSet& tables, const ZNTopoFilter& filter);
/// The subnets that have an address row of their own.
std::string subnetsByFilterSql(const TableSet& tables, const ZNTopoFilter& filter);
/// Entities. The columns carry the name of the active table, whatever the set; a filter without a
/// field leaves no condition, which no engine takes.
std::string entitiesByFilterSql(const TableSet& tables, const ZNTopoFilter& filter);
/// Addresses other than those of subnets.
std::string addressesByFilterSql(const TableSet& tables, const ZNTopoFilter& filter);

}  // namespace zntopo::detail
