#pragma once

#include <list>
#include <set>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/ZNAddress.h"
#include "zntopo/store/TableSet.h"

/// @file
/// The statements of the address queries, as texts. Blanks are part of them.

namespace zntopo::detail {

/// What a list of owners in a query for their addresses holds.
enum OwnerMode : int {
  ADDRESSES_OF_OWNERS = 0,
  ADDRESSES_OF_NODES = 1,          ///< of the interfaces of the nodes
  ADDRESSES_OF_ALL_INTERFACES = 2  ///< so is any greater number
};

/// The big select of addresses, which have the alias "a"; with more tables and a condition unless
/// these are empty.
std::string addressSelect(const TableSet& tables, const std::string& condition,
                          const std::string& moreTables);

/// @name Conditions of the big select
/// @{
std::string addressesByIDs(const std::set<std::string>& ids);
std::string addressesOfType(ZNAddress::AddressType type);
std::string addressByQRMID(const ObjID& id);
/// By the text of an address, IPv6 if there is a colon in it: without a route distinguisher
/// (below 0) the public IPv4 address, else the private one.
std::string addressByIP(const std::string& ip, int rd);
std::string addressesByOwners(const std::list<ObjID>& ids, int mode);
/// @}

/// The further tables that addressesByOwners() needs.
std::string addressOwnerTables(const TableSet& tables, int mode);

/// The DNS names of an IPv6 address.
std::string dnsNamesSql(const TableSet& tables, const ObjID& id);
/// The IPv6 addresses whose DNS name fits a pattern.
std::string addressesByDnsNameSql(const TableSet& tables, const std::string& expression);

}  // namespace zntopo::detail
