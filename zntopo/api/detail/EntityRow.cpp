#include "zntopo/api/detail/EntityRow.h"

#include "zntopo/api/detail/RowValues.h"
#include "zntopo/core/MCLog.h"

namespace zntopo::detail {

namespace {

bool holdsWhatItMust(const Row& row, int column) {
  return column == EntityColumns::NO_COLUMN || row.isPresent(column);
}

}  // namespace

bool isComplete(const Row& row, const EntityColumns& columns) {
  if (holdsWhatItMust(row, columns.objID) && holdsWhatItMust(row, columns.name) &&
      holdsWhatItMust(row, columns.ipLevel)) {
    return true;
  }
  MCLog::log(MC_INFO, "Received NULL values for critical data\n");
  MCLog::log(MC_INFO, "%s", columns.refusal);
  return false;
}

ZNEntity entityFromRow(const Row& row, const EntityColumns& columns, EntityType type,
                       TopoDBType dbType) {
  const ObjID absentQRMObjID = columns.absentQRMObjID ? ObjID(*columns.absentQRMObjID) : ObjID();
  // Read without its indicator: NULL counts as 0.
  const int routeDistinguisher = columns.routeDistinguisher == EntityColumns::NO_COLUMN
                                     ? 0
                                     : row.integer(columns.routeDistinguisher);
  return ZNEntity(presentID(row, columns.objID), presentText(row, columns.zoneNumber),
                  presentID(row, columns.qrmObjID, absentQRMObjID), presentText(row, columns.name),
                  presentText(row, columns.description), type, presentStatus(row, columns.status),
                  presentStatus(row, columns.v6CompoundStatus),
                  presentStatus(row, columns.v6GlobalStatus),
                  presentStatus(row, columns.v6SiteStatus), presentInt(row, columns.createTime),
                  presentInt(row, columns.changeTime), presentInt(row, columns.statusChangeTime),
                  routeDistinguisher, ipLevelOf(row, columns.ipLevel), dbType);
}

}  // namespace zntopo::detail
