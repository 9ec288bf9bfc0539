#include "zntopo/api/detail/AuditSql.h"

#include "zntopo/core/ltos.h"

namespace zntopo::detail {

namespace {

/// Adds a comparison to a condition.
void add(std::string& condition, const char* comparison, long value) {
  if (!condition.empty()) condition += " AND ";
  condition += comparison + ltos(value);
}

}  // namespace

std::string auditTrailSelect(const TableSet& tables, long startTime, long endTime,
                             ZNAuditAction::Type actionType, ZNAuditTrail::ObjectType objType) {
  std::string condition;
  if (startTime == endTime) {
    if (startTime != 0) add(condition, " ActionTimeUTC = ", startTime);
  } else {
    if (startTime > 0) add(condition, " ActionTimeUTC >= ", startTime);
    if (endTime > 0) add(condition, " ActionTimeUTC <= ", endTime);
  }
  if (actionType != ZNAuditAction::TypeDontCare) add(condition, " ActionType = ", actionType);
  if (objType != ZNAuditTrail::ObjectTypeDontCare) add(condition, " ObjectType = ", objType);
  return "select ActionTimeUTC, ActionType, ObjID, ActionDetail,  ObjectType, ActionInfo from  " +
         tables.nwtopoaudittrailTbl_ + " " + (condition.empty() ? "" : " where " + condition);
}

}  // namespace zntopo::detail
