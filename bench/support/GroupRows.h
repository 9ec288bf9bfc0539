#pragma once

#include <list>
#include <string>
#include <tuple>
#include <vector>

#include "bench/support/PlainRead.h"
#include "zntopo/api/detail/AddressRow.h"
#include "zntopo/api/detail/AddressSql.h"
#include "zntopo/api/detail/AttachmentRows.h"
#include "zntopo/api/detail/AttachmentSql.h"
#include "zntopo/api/detail/EntitySql.h"
#include "zntopo/api/detail/EntityTableRow.h"
#include "zntopo/api/detail/GroupRows.h"
#include "zntopo/api/detail/GroupSql.h"

/// @file
/// All groups of a kind and what they hold, read plainly: by the statements that the library asks
/// for all of them with.

namespace zntopo::bench {

/// The rows of a kind, and those of each statement on what they hold.
template <typename Row, typename... MoreRows>
struct GroupRows {
  std::vector<Row> groups;
  std::tuple<std::vector<MoreRows>...> parts;

  std::size_t size() const { return groups.size(); }
};

using PlainEntity = PlainRow<detail::kEntityTableColumns>;

inline std::list<ObjID> idsOf(const std::vector<PlainEntity>& entities) {
  std::list<ObjID> ids;
  for (const PlainEntity& entity : entities) ids.emplace_back(entity.texts[0]);
  return ids;
}

struct VlanStatements {
  auto read(TvDbil::DbConnection_t& connection) const {
    return GroupRows<PlainEntity, PlainRow<detail::kVlanInfoColumns>,
                     PlainRow<detail::kUserVarColumns>>{
        readPlain<detail::kEntityTableColumns>(connection, vlans),
        {readPlain<detail::kVlanInfoColumns>(connection, members),
         readPlain<detail::kUserVarColumns>(connection, variables)}};
  }

  TableSet tables;
  std::string vlans = detail::entitySelect(tables, detail::allVlans(-1));
  std::string members = detail::vlanInfoSelect(tables, {}, false, true, false);
  std::string variables = detail::userVarSelect(tables, E_Vlan, tables.nwentityTbl_, {});
};

struct HSRPStatements {
  auto read(TvDbil::DbConnection_t& connection) const {
    return GroupRows<PlainEntity, PlainRow<detail::kHSRPInfoColumns>>{
        readPlain<detail::kEntityTableColumns>(connection, groups),
        {readPlain<detail::kHSRPInfoColumns>(connection, members)}};
  }

  TableSet tables;
  std::string groups = detail::entitySelect(tables, detail::allHSRPs(-1));
  std::string members = detail::hsrpInfoSelect(tables, {}, true);
};

/// Data and associations with the identifiers of the containers that they belong to.
inline constexpr Column kContainerDataColumns[] = {textColumn("ObjID", 37), intColumn("IFCType"),
                                                   intColumn("isOrdered"), intColumn("AppsID")};

struct ContainerStatements {
  using PlainContainer = PlainRow<detail::kIfcEntityColumns>;
  using Members = PlainRow<detail::kIfcInfoColumns>;
  using Association = PlainRow<detail::kIfcAssociationColumns>;

  /// Data and associations in one statement for all.
  auto read(TvDbil::DbConnection_t& connection) const {
    return GroupRows<PlainContainer, PlainRow<kContainerDataColumns>, Association, Members>{
        readPlain<detail::kIfcEntityColumns>(connection, containers),
        {readPlain<kContainerDataColumns>(connection, data),
         readPlain<detail::kIfcAssociationColumns>(connection, associations),
         readPlain<detail::kIfcInfoColumns>(connection, members)}};
  }

  /// The same with two statements for each container.
  auto readOneByOne(TvDbil::DbConnection_t& connection) const {
    GroupRows<PlainContainer, PlainRow<detail::kIfcDataColumns>, Association, Members> rows;
    auto& [dataRows, associationRows, memberRows] = rows.parts;
    rows.groups = readPlain<detail::kIfcEntityColumns>(connection, containers);
    for (const PlainContainer& container : rows.groups) {
      const ObjID id(container.texts[0]);
      for (auto& row :
           readPlain<detail::kIfcDataColumns>(connection, detail::ifcDataSql(tables, id))) {
        dataRows.push_back(std::move(row));
      }
      for (auto& row : readPlain<detail::kIfcAssociationColumns>(
               connection, detail::ifcAssociationsSql(tables, id))) {
        associationRows.push_back(std::move(row));
      }
    }
    memberRows = readPlain<detail::kIfcInfoColumns>(connection, members);
    return rows;
  }

  TableSet tables;
  std::string containers = detail::ifcEntitySelect(tables, detail::allIfcs(-1));
  std::string data = "select ObjID, IFCType, isOrdered, AppsID from " + tables.nwifcTbl_;
  std::string associations =
      "select LeftIFContainerObjID, RightIFContainerObjID, RelType, LeftIfcType, RightIfcType, "
      "State, StateChangeTime, Description, ExtraInfo from " +
      tables.nwifcascTbl_;
  std::string members = detail::ifcInfoSelect(tables, {}, false, true, 0);
};

inline constexpr Column kEndPointColumns[] = {textColumn("AddressID", 66), textColumn("ObjID", 66),
                                              textColumn("NodeObjID", 66),
                                              textColumn("SubnetObjID", 66)};

struct SubnetStatements {
  auto read(TvDbil::DbConnection_t& connection) const { return read(connection, subnets); }
  /// One of them, by its identifier.
  auto readOne(TvDbil::DbConnection_t& connection, const ObjID& id) const {
    return read(connection, detail::entitySelect(tables, detail::subnetsByIDs({id}, false)));
  }

  TableSet tables;
  std::string subnets = detail::entitySelect(tables, detail::allSubnets(ZNEntity::AllProtocol, -1));

 private:
  using Rows =
      GroupRows<PlainEntity, PlainRow<detail::kAddressColumns>, PlainRow<kEndPointColumns>>;

  /// The addresses and the end points are asked for by the identifiers that came first.
  Rows read(TvDbil::DbConnection_t& connection, const std::string& sql) const {
    Rows rows;
    auto& [addressRows, endPointRows] = rows.parts;
    rows.groups = readPlain<detail::kEntityTableColumns>(connection, sql);
    const std::list<ObjID> ids = idsOf(rows.groups);
    constexpr auto kMode = detail::ADDRESSES_OF_OWNERS;
    addressRows = readPlain<detail::kAddressColumns>(
        connection, detail::addressSelect(tables, detail::addressesByOwners(ids, kMode),
                                          detail::addressOwnerTables(tables, kMode)));
    endPointRows =
        readPlain<kEndPointColumns>(connection, detail::endPointsOfSubnetsSql(tables, ids));
    return rows;
  }
};

}  // namespace zntopo::bench
