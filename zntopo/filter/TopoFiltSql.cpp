#include "zntopo/filter/TopoFiltSql.h"

namespace zntopo {

namespace {

/// Another table, and the text in a condition that brings it in.
struct JoinedTable {
  const char* alias;
  const char* from;
  const char* where;
};

struct FilteredKind {
  EntityType type;
  const char* select;
  const char* from;
  JoinedTable joined[2];
};

// An address and an interface meet in "objid", a node meets either in "nodeobjid".
constexpr FilteredKind kKinds[] = {
    {E_Node,
     "select NODE.objid ",
     "from nwnode NODE ",
     {{" IF.", ", nwinterface IF ", "NODE.objid = IF.nodeobjid AND "},
      {" ADDR.", ", address ADDR ", "NODE.objid = ADDR.nodeobjid AND "}}},
    {E_Interface,
     "select IF.objid ",
     "from nwinterface IF ",
     {{" NODE.", ", nwnode NODE ", "NODE.objid = IF.nodeobjid AND "},
      {" ADDR.", ", address ADDR ", "IF.objid = ADDR.objid AND "}}},
    {E_Address,
     "select ADDR.objid ",
     "from address ADDR ",
     {{" IF.", ", nwinterface IF ", "ADDR.objid = IF.objid AND "},
      {" NODE.", ", nwnode NODE ", "NODE.objid = ADDR.nodeobjid AND "}}},
};

std::string sqlOf(const TopoFilt& filter, const char* select) {
  const std::string& condition = filter.getFinalWhereClause();
  for (const FilteredKind& kind : kKinds) {
    if (kind.type != filter.getObjType()) continue;
    std::string from = kind.from;
    std::string where = "where ";
    for (const JoinedTable& table : kind.joined) {
      if (condition.find(table.alias) == std::string::npos) continue;
      from += table.from;
      where += table.where;
    }
    return (select != nullptr ? select : kind.select) + from + where + condition;
  }
  return condition;
}

}  // namespace

std::string objectsOfTopoFiltSql(const TopoFilt& filter) { return sqlOf(filter, nullptr); }

std::string addressesOfTopoFiltSql(const TopoFilt& filter) {
  return sqlOf(filter, "select ADDR.addressid ");
}

}  // namespace zntopo
