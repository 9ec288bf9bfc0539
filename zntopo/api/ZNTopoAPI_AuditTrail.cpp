// What discovery did to its objects.

#include <map>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/AuditSql.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

constexpr AccessTexts kTexts = {
    .noConnection = {"Failed to get an ODBC connection \n", MC_CRITICAL},
    .statement = {ZN_API_SQL_BIND_STATEMENT_ERROR, "Failed to bind SQL statement: ", true},
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for AuditTrail"},
    .preparing = {"SQL : %s \n", MC_INFO},
};

enum AuditColumn { Time, Type, ID, Detail, ObjType, Info };

constexpr Column kColumns[] = {
    intColumn("ActionTimeUTC"), intColumn("ActionType"), textColumn("ObjID", 37),
    intColumn("ActionDetail"),  intColumn("ObjectType"), textColumn("ActionInfo", 255),
};

/// A column without which there is no entry, and what is logged where it is NULL.
struct NeededColumn {
  AuditColumn column;
  const char* line;
  MCDebugLevel level;
};

constexpr NeededColumn kNeeded[] = {
    {Time, "Received NULL value for ActionTimeUTC.\n", MC_MAJOR},
    {Type, "Received NULL value for ActionType.\n", MC_MAJOR},
    {ID, "Received NULL value for ObjectID.\n", MC_INFO},
};

/// What stands for a detail or a kind of object that is NULL: L2Connection, and Node.
constexpr int kDefault = 1;

bool isComplete(const Row& row) {
  for (const NeededColumn& needed : kNeeded) {
    if (row.isPresent(needed.column)) continue;
    MCLog::log(needed.level, "%s", needed.line);
    MCLog::log(MC_MAJOR, "Error creating AuditTrail entry. Skipping.\n");
    return false;
  }
  return true;
}

int numberOf(const Row& row, AuditColumn column) {
  return row.isPresent(column) ? row.integer(column) : kDefault;
}

/// The trails in the order of their objects' first rows.
class Trails {
 public:
  void add(const Row& row) {
    const ZNAuditAction action(row.integer(Time), row.integer(Type), numberOf(row, Detail),
                               row.isPresent(Info) ? row.text(Info) : "");
    trailOf(row)->addAuditAction(action);
  }
  ZNTopoAPI::OwnedAuditTrailVector take() { return std::move(trails_); }

 private:
  /// The trail of a row's object, which has the kind that the object's first row tells.
  ZNRefPtr<ZNAuditTrail> trailOf(const Row& row) {
    const std::string id = row.text(ID);
    const auto [entry, isNew] = byID_.try_emplace(id);
    if (!isNew) {
      MCLog::log(MC_VERBOSE, "Found existing AuditTrail: %s \n", id.c_str());
      return entry->second;
    }
    MCLog::log(MC_VERBOSE, "Creating AuditTrail: %s \n", id.c_str());
    entry->second = ZNRefPtr<ZNAuditTrail>(new ZNAuditTrail(ObjID(id), numberOf(row, ObjType)));
    trails_->push_back(entry->second);
    return entry->second;
  }

  ZNTopoAPI::OwnedAuditTrailVector trails_ =
      std::make_unique<ZNTopoAPI::OwnedAuditTrailVector::element_type>();
  std::map<std::string, ZNRefPtr<ZNAuditTrail>> byID_;
};

}  // namespace

ZNTopoAPI_Impl::OwnedAuditTrailVector ZNTopoAPI_Impl::getAuditTrail(
    long actionStartTime, long actionEndTime, ZNAuditAction::Type actionType,
    ZNAuditTrail::ObjectType objType, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getAuditTrail");
  theStatus.reset();
  Trails trails;
  StoreAccess access(theStatus, kTexts);
  if (!access.isConnected()) return trails.take();
  if (actionStartTime > actionEndTime && actionEndTime != 0) {
    MCLog::log(MC_INFO, "Invalid parameters. Start time[%ld] greater than end time[%ld].\n",
               actionStartTime, actionEndTime);
    MCLog::log(MC_INFO, "No AuditTrail entries can be returned.\n");
    return trails.take();
  }
  access.run(detail::auditTrailSelect(*this, actionStartTime, actionEndTime, actionType, objType),
             kColumns, [&trails](const Row& row) {
               if (isComplete(row)) trails.add(row);
               return true;
             });
  return trails.take();
}

}  // namespace zntopo
