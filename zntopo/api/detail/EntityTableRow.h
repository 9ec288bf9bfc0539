#pragma once

#include "zntopo/api/detail/EntityRow.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/store/StoreAccess.h"

/// @file
/// The row of the select of entities of any kind, from the table nwentity.

namespace zntopo::detail {

/// The columns in the order of the statement, counted from 0.
enum EntityTableColumn : int {
  ENT_ObjId,
  ENT_EntityName,
  ENT_IPLevel,
  ENT_QRMObjId,
  ENT_Description,
  ENT_EntityType,
  ENT_ZoneNumber,
  ENT_V6CompoundStatus,
  ENT_V6GlobalStatus,
  ENT_V6SiteStatus,
  ENT_StatusChangeTimeUTC,
  ENT_CreateTimeUTC,
  ENT_ChangeTimeUTC,
  ENT_hasDynamicProperty,
  ENT_hasAddress,
  ENT_EntityOID,
  ENT_Status,
  ENT_RouteDistinguisher,
  ENTITY_TABLE_COLUMN_COUNT
};

inline constexpr Column kEntityTableColumns[] = {
    textColumn("ObjId", 66),
    textColumn("EntityName", 256),
    intColumn("IPLevel"),
    textColumn("QRMObjId", 66),
    textColumn("Description", 2001),
    intColumn("EntityType"),
    textColumn("ZoneNumber", 65),
    intColumn("V6CompoundStatus"),
    intColumn("V6GlobalStatus"),
    intColumn("V6SiteStatus"),
    intColumn("StatusChangeTimeUTC"),
    intColumn("CreateTimeUTC"),
    intColumn("ChangeTimeUTC"),
    intColumn("hasDynamicProperty"),
    intColumn("hasAddress"),
    textColumn("EntityOID", 65),
    intColumn("Status"),
    intColumn("RouteDistinguisher"),
};
static_assert(sizeof(kEntityTableColumns) / sizeof(Column) == ENTITY_TABLE_COLUMN_COUNT);

inline constexpr EntityColumns kEntityTableEntityColumns = {
    .objID = ENT_ObjId,
    .name = ENT_EntityName,
    .ipLevel = ENT_IPLevel,
    .zoneNumber = ENT_ZoneNumber,
    .qrmObjID = ENT_QRMObjId,
    .description = ENT_Description,
    .status = ENT_Status,
    .v6CompoundStatus = ENT_V6CompoundStatus,
    .v6GlobalStatus = ENT_V6GlobalStatus,
    .v6SiteStatus = ENT_V6SiteStatus,
    .createTime = ENT_CreateTimeUTC,
    .changeTime = ENT_ChangeTimeUTC,
    .statusChangeTime = ENT_StatusChangeTimeUTC,
    .routeDistinguisher = ENT_RouteDistinguisher,
    .hasDynamicProperty = ENT_hasDynamicProperty,
    .hasAddress = ENT_hasAddress,
    .absentQRMObjID = 0,
};

}  // namespace zntopo::detail
