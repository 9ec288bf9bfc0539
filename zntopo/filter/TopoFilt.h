#pragma once

#include <string>

#include "zntopo/model/EntityType.h"

namespace zntopo {

/// One topology filter: a named search condition over nodes, interfaces or addresses.
/// A plain value without a lock.
class TopoFilt {
 public:
  /// Three empty texts and E_Unknown.
  TopoFilt() = default;
  /// @param objectType "Node", "Interface" or "Address"; anything else gives E_Unknown.
  /// @param where the condition before references are expanded; the expanded one is empty.
  TopoFilt(const std::string& name, const std::string& objectType, const std::string& where);

  const std::string& getName() const { return FilterName; }
  /// The kind of objects that the filter selects.
  EntityType getObjType() const { return ObjType; }
  /// The condition as its definition has it, with "#name#" for other filters.
  const std::string& getWhereQueryString() const { return WhereQueryString; }
  /// The condition that queries use: references are expanded.
  const std::string& getFinalWhereClause() const { return FinalWhereString; }

  /// Return the stored text.
  const std::string& setWhereQueryString(const std::string& where);
  const std::string& setFinalWhereClause(const std::string& where);

 private:
  std::string FilterName;
  EntityType ObjType = E_Unknown;
  std::string WhereQueryString;
  std::string FinalWhereString;
};

}  // namespace zntopo
