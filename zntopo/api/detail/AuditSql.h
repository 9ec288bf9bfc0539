#pragma once

#include <string>

#include "zntopo/api/ZNAuditTrail.h"
#include "zntopo/store/TableSet.h"

namespace zntopo::detail {

/// The statement that reads the audit trail. Blanks are part of it, and it names no order.
/// @param startTime, endTime seconds UTC, both included; 0 and below leave a side open, unless both
///     are the same
std::string auditTrailSelect(const TableSet& tables, long startTime, long endTime,
                             ZNAuditAction::Type actionType, ZNAuditTrail::ObjectType objType);

}  // namespace zntopo::detail
