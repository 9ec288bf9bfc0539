// Entities of any kind: what subnets, VLANs, containers and HSRP groups are made of.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/EntitySql.h"
#include "zntopo/api/detail/EntityTableRow.h"
#include "zntopo/api/detail/GroupRows.h"
#include "zntopo/api/detail/GroupSql.h"
#include "zntopo/api/detail/ObjectsRead.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

namespace {

using EntityVector = std::vector<ZNRefPtr<ZNEntity>>;
using EntitiesRead = detail::ObjectsRead<ZNEntity>;

constexpr AccessTexts kEntityTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for Entity"},
    .preparing = {"SQL : %s \n"},
};

/// Takes the entity of a row. False for an incomplete row, which ends the read.
bool addEntity(EntitiesRead& read, const Row& row, const detail::EntityColumns& columns,
               EntityType type, TopoDBType dbType) {
  return read.add(row, columns, [&](const Row& complete) {
    MCLog::log(MC_INFO, "Creating Entity: %s : %s \n", complete.text(columns.objID),
               complete.text(columns.name));
    return ZNRefPtr<ZNEntity>(new ZNEntity(detail::entityFromRow(complete, columns, type, dbType)));
  });
}

ZNTopoAPI_Impl::OwnedEntityVector vectorOf(const EntitiesRead& read) {
  return std::make_unique<EntityVector>(read.objects.begin(), read.objects.end());
}

}  // namespace

ZNTopoAPI_Impl::OwnedEntityVector ZNTopoAPI_Impl::getEntitiesByWhereClause(
    std::string& theWhereClause, ZNTopoAPIStatus& theStatus, bool loadUDV) {
  const detail::OperationScope scope("getEntitiesByWhereClause");
  if (theWhereClause.empty()) {
    MCLog::log(MC_CRITICAL, "Where Clause is empty !\n");
    return std::make_unique<EntityVector>();
  }
  theStatus.reset();
  // The connection is held while the loaders take theirs.
  StoreAccess access(theStatus, kEntityTexts);
  EntitiesRead read;
  const bool isRead = access.run(
      detail::entitySelect(*this, theWhereClause), detail::kEntityTableColumns,
      [&](const Row& row) {
        const EntityType type = getEntityTypeFromInt(row.integer(detail::ENT_EntityType));
        return addEntity(read, row, detail::kEntityTableEntityColumns, type, dbType_);
      });
  if (!isRead || read.isCutShort) return vectorOf(read);
  if (loadUDV && !detail::giveUserVars(*this, read, theStatus)) return vectorOf(read);
  detail::giveAddresses(
      read,
      [&](const std::list<ObjID>& ids) { return getAddrsByAssociatedObjIDList(ids, theStatus, 0); },
      theStatus);
  return vectorOf(read);
}

// The condition may be empty: all containers are meant then.
ZNTopoAPI_Impl::OwnedEntityVector ZNTopoAPI_Impl::getIfcEntitiesByWhereClause(
    std::string& theWhereClause, ZNTopoAPIStatus& theStatus, bool /*loadUDVs*/) {
  const detail::OperationScope scope("getIfcEntitiesByWhereClause");
  theStatus.reset();
  if (theWhereClause.empty()) MCLog::log(MC_CRITICAL, "Where Clause is empty !\n");
  EntitiesRead read;
  runQuery(detail::ifcEntitySelect(*this, theWhereClause), detail::kIfcEntityColumns, kEntityTexts,
           theStatus, [&](const Row& row) {
             return addEntity(read, row, detail::kIfcEntityEntityColumns, E_IfC, dbType_);
           });
  return vectorOf(read);
}

}  // namespace zntopo
