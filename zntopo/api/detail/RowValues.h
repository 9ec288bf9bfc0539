#pragma once

#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/ObjectStatus.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/store/StoreAccess.h"

/// @file
/// Values of a row, each with what stands for it where the column is absent: NULL, or negative for
/// a column that the statement does not have.

namespace zntopo::detail {

inline bool isPresent(const Row& row, int column) { return column >= 0 && row.isPresent(column); }

inline int presentInt(const Row& row, int column, int absent = 0) {
  return isPresent(row, column) ? row.integer(column) : absent;
}

inline std::string presentText(const Row& row, int column, const char* absent = "") {
  return isPresent(row, column) ? row.text(column) : absent;
}

inline ObjID presentID(const Row& row, int column, const ObjID& absent = ObjID()) {
  return isPresent(row, column) ? ObjID(row.text(column)) : absent;
}

inline ObjectStatus presentStatus(const Row& row, int column) {
  return isPresent(row, column) ? ObjectStatus(row.integer(column)) : ObjectStatus();
}

/// The column IPLevel: any value but 6 is IPv4.
inline ZNEntity::IPLevel ipLevelOf(const Row& row, int column) {
  return presentInt(row, column) == 6 ? ZNEntity::IPv6 : ZNEntity::IPv4;
}

}  // namespace zntopo::detail
