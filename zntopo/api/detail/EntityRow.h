#pragma once

#include <optional>

#include "zntopo/model/EntityType.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/store/StoreAccess.h"

/// @file
/// What the rows of all kinds of entities have in common.

namespace zntopo::detail {

/// Where a statement has the columns of an entity, counted from 0; NO_COLUMN where it has none.
struct EntityColumns {
  static constexpr int NO_COLUMN = -1;

  /// @name Columns that must hold something, if the statement has them
  /// @{
  int objID = NO_COLUMN;
  int name = NO_COLUMN;
  int ipLevel = NO_COLUMN;
  /// @}
  int zoneNumber = NO_COLUMN;
  int qrmObjID = NO_COLUMN;
  int description = NO_COLUMN;
  int status = NO_COLUMN;
  int v6CompoundStatus = NO_COLUMN;
  int v6GlobalStatus = NO_COLUMN;
  int v6SiteStatus = NO_COLUMN;
  int createTime = NO_COLUMN;
  int changeTime = NO_COLUMN;
  int statusChangeTime = NO_COLUMN;
  int routeDistinguisher = NO_COLUMN;
  /// @name Columns that tell what hangs on an entity, where somebody wants to know
  /// @{
  int hasDynamicProperty = NO_COLUMN;
  int hasAddress = NO_COLUMN;
  /// @}
  /// The number that stands for an absent legacy identifier; without it that is the null one.
  std::optional<int> absentQRMObjID = std::nullopt;
  /// What the log says of a row that is not complete, after the reason.
  const char* refusal = "Unable to create Entity!\n";
};

/// True if the row holds what no entity can be without; else the log tells.
bool isComplete(const Row& row, const EntityColumns& columns);

/// The entity of a complete row. What is absent or NULL has its default.
ZNEntity entityFromRow(const Row& row, const EntityColumns& columns, EntityType type,
                       TopoDBType dbType);

}  // namespace zntopo::detail
